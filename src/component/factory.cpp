#include <algorithm>
#include <string>
#include <string_view>

#include <vexnumkr/component.h>

#include "component/composition.h"

namespace vexnumkr {
namespace {

class EmptyHost final : public HostComponents {
 public:
  std::unique_ptr<HostComponent> CreateObject(const std::string& /*name*/) override {
    throw Error::cannotCreateObject();
  }
  HostTexts* Texts() override { return nullptr; }
  HostMessages* Messages() override { return nullptr; }
};

std::string inLowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return result;
}

bool isClassName(std::string_view name) {
  const std::string wanted = inLowerCase(name);
  return wanted == "vxnummernkreise" || wanted == "vexnummernkreise.vxnummernkreise";
}

}  // namespace

std::unique_ptr<VXNummernkreise> createVXNummernkreise(HostComponents& host) {
  return std::make_unique<QtComponent>(host);
}

HostComponents& emptyHost() {
  static EmptyHost host;  // holds no state
  return host;
}

}  // namespace vexnumkr

vexnumkr::VXNummernkreise* vexnumkrCreateObject(const char* className,
                                                vexnumkr::HostComponents* host) noexcept {
  try {
    if (className == nullptr || !vexnumkr::isClassName(className)) return nullptr;
    return vexnumkr::createVXNummernkreise(host != nullptr ? *host : vexnumkr::emptyHost())
        .release();
  } catch (...) {
    return nullptr;
  }
}

void vexnumkrReleaseObject(vexnumkr::VXNummernkreise* object) noexcept { delete object; }

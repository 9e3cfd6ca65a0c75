#include <string>
#include <string_view>

#include <vexnumkr/component.h>
#include <vexnumkr/version.h>

#include "component/composition.h"
#include "component/process.h"
#include "platform/ascii_case.h"

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

bool isClassName(std::string_view name) {
  return equalsWithoutCase(name, "VXNummernkreise") ||
         equalsWithoutCase(name, "VEXNummernkreise.VXNummernkreise");
}

}  // namespace

std::unique_ptr<VXNummernkreise> createVXNummernkreise(HostComponents& host,
                                                       DatabaseAccess access) {
  requireDialogThread();
  stayLoaded();
  return std::make_unique<QtComponent>(host, access);
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
    vexnumkr::stayLoaded();
    if (!vexnumkr::haveApplication()) return nullptr;
    return vexnumkr::createVXNummernkreise(host != nullptr ? *host : vexnumkr::emptyHost())
        .release();
  } catch (...) {
    return nullptr;
  }
}

void vexnumkrReleaseObject(vexnumkr::VXNummernkreise* object) noexcept { delete object; }

const char* vexnumkrVersion() noexcept { return vexnumkr::version; }

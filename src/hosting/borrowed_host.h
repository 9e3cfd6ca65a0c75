// The host's components as long as they may be asked for anything.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/error.h>
#include <vexnumkr/host_components.h>

namespace vexnumkr {

/// Forwards to the host until it is given back; from then on there is nothing of a host: no
/// component (error 429), no texts, no boxes.
class BorrowedHost final : public HostComponents {
 public:
  /// `host` is borrowed until giveBack.
  explicit BorrowedHost(HostComponents& host) : host_(&host) {}

  void giveBack() noexcept { host_ = nullptr; }
  bool isGivenBack() const noexcept { return host_ == nullptr; }

  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override {
    if (host_ == nullptr) throw Error::cannotCreateObject();
    return host_->CreateObject(name);
  }
  HostTexts* Texts() override { return offered(&HostComponents::Texts); }
  HostMessages* Messages() override { return offered(&HostComponents::Messages); }

 private:
  // The host may be given back while it is being asked.
  template <class Facility>
  Facility* offered(Facility* (HostComponents::*member)()) {
    Facility* const found = host_ == nullptr ? nullptr : (host_->*member)();
    return host_ == nullptr ? nullptr : found;
  }

  HostComponents* host_;
};

}  // namespace vexnumkr

// The host components that a Windows host has registered.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/host_components.h>

namespace vexnumkr::automation {

/// Creates host components by their names and calls them late-bound. The host's texts, pictures and
/// message boxes are not reached that way: questions and failures come in plain boxes.
class AutomationHost final : public HostComponents {
 public:
  /// "vxtComDlg.WWSDialog" or "VEXSetting.VXSettings". Error 429 for any other name, and for one
  /// that is not registered.
  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override;
  HostTexts* Texts() override { return nullptr; }
  HostMessages* Messages() override { return nullptr; }
};

}  // namespace vexnumkr::automation

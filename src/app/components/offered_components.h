// What the stand-alone host offers to the component.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/host_components.h>

#include "app/components/host_messages.h"
#include "app/components/host_texts.h"

namespace vexnumkr::app {

/// The stand-alone host's components by name, its text catalogue and its message facility.
class StandAloneHost : public HostComponents {
 public:
  /// Names are compared without regard to case. Error 429 for an unknown one.
  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override;
  HostTexts* Texts() override { return &texts_; }
  HostMessages* Messages() override { return &messages_; }

 private:
  TextCatalogue texts_;
  MessageFacility messages_;
};

}  // namespace vexnumkr::app

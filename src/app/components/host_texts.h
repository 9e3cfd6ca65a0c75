// The stand-alone host's text and picture catalogue.
#pragma once

#include <vexnumkr/host_components.h>

namespace vexnumkr::app {

/// Entry 10055 is what a failure box shows behind its module: the procedure, ": ", and then the
/// description, which MessageFacility adds. Picture 267 is the window icon.
class TextCatalogue : public HostTexts {
 public:
  /// Errors: 9 for an entry that is not there, 94 and 13 for a parameter that is no text.
  std::string Text(std::int32_t id, const std::vector<Value>& parameters) override;
  /// A PNG. Error 9 for a picture that is not there.
  PictureData Picture(std::int32_t id) override;
};

}  // namespace vexnumkr::app

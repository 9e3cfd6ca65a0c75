// A host's texts and message facility for the real dialogs, each of whose members can be broken.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/error.h>
#include <vexnumkr/host_components.h>

#include "adapters/qtforms/message_box.h"

namespace vexnumkr::test {

/// Shows real boxes, whose titles begin with "Host: ". The member named in `failing` fails with
/// error 4712.
class BreakableMessages final : public HostTexts, public HostMessages {
 public:
  std::string failing;

  std::string Text(std::int32_t, const std::vector<Value>& parameters) override {
    enter("Text");
    return parameters.at(0).toText() + ": ";
  }
  PictureData Picture(std::int32_t) override {
    enter("Picture");
    return {};
  }

  void ErrorNumber(std::int32_t) override { enter("ErrorNumber"); }
  Value Prepare(const Value& text, std::int16_t, const std::optional<Value>&) override {
    enter("Prepare");
    description_ = text.toText();
    return {};
  }
  std::int32_t Show(const Value& text, std::int16_t, const std::optional<Value>& source,
                    std::int32_t buttons, const std::optional<Value>& title, bool) override {
    enter("Show");
    if (!source) {
      return qtforms::showMessageBox(text.toText(), buttons, "Host: " + title->toText());
    }
    return qtforms::showMessageBox(text.toText() + description_, buttons,
                                   "Host: " + source->toText());
  }

 private:
  void enter(const char* member) const {
    if (failing == member) throw Error(4712, "Host", "Der Host versagt");
  }

  std::string description_;
};

}  // namespace vexnumkr::test

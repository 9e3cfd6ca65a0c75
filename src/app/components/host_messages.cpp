#include "app/components/host_messages.h"

#include <vexnumkr/message_box.h>

namespace vexnumkr::app {
namespace {

constexpr std::int16_t failureKind = 3;

std::string textOf(const std::optional<Value>& value) { return value ? value->toText() : ""; }

}  // namespace

void MessageFacility::ErrorNumber(std::int32_t number) { number_ = number; }

Value MessageFacility::Prepare(const Value& text, std::int16_t, const std::optional<Value>&) {
  description_ = text.toText();
  return text;
}

std::string MessageFacility::failureTitle() const {
  return number_ ? "Fehler " + std::to_string(*number_) : "Fehler";
}

std::int32_t MessageFacility::Show(const Value& text, std::int16_t kind,
                                   const std::optional<Value>& source, std::int32_t buttons,
                                   const std::optional<Value>& title, bool) {
  if (kind != failureKind) return showMessageBox(text.toText(), buttons, textOf(title));
  const std::string boxTitle = title ? title->toText() : failureTitle();
  const std::string prompt = textOf(source) + "\r\n" + text.toText() + description_;
  number_.reset();
  description_.clear();
  return showMessageBox(prompt, buttons, boxTitle);
}

}  // namespace vexnumkr::app

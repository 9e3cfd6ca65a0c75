// The stand-alone host's message facility.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <vexnumkr/host_components.h>

namespace vexnumkr::app {

/// Shows the failures and questions of application 1 in boxes with the titles, prompts, buttons and
/// answers that application 2 shows.
///
/// A failure is announced by its number and, in Prepare, by its description; the Show that follows
/// (kind 3) puts the box together: title "Fehler " and the number; prompt the source, a line break,
/// the text and the description. What was announced is forgotten then.
class MessageFacility : public HostMessages {
 public:
  void ErrorNumber(std::int32_t number) override;
  /// Keeps `text` for the next failure box and returns it.
  Value Prepare(const Value& text, std::int16_t kind, const std::optional<Value>& third) override;
  /// Errors: 94 and 13 for a text, source or title that is no text.
  std::int32_t Show(const Value& text, std::int16_t kind, const std::optional<Value>& source,
                    std::int32_t buttons, const std::optional<Value>& title, bool flag) override;

 private:
  std::string failureTitle() const;

  std::optional<std::int32_t> number_;
  std::string description_;
};

}  // namespace vexnumkr::app

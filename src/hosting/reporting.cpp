#include "hosting/reporting.h"

#include <new>
#include <optional>

namespace vexnumkr {
namespace {

constexpr std::int32_t failureText = 10055;  // the host's text that names the failed procedure
constexpr std::int16_t failureKind = 3;
constexpr std::int16_t questionKind = 4;
constexpr std::int32_t outOfMemory = 7;
constexpr std::int32_t internalError = 51;

bool usesHostsBoxes(const HostContext& context) { return context.LngApplication() == 1; }

// Whether the host's facility has shown the failure. A host without one has not.
bool shownByHost(const HostContext& context, std::int32_t number, const std::string& description,
                 const std::string& procedure, std::int16_t kind, std::int32_t buttons,
                 const std::string& module) {
  if (!usesHostsBoxes(context)) return false;
  HostMessages* messages = context.host().Messages();
  HostTexts* texts = context.host().Texts();
  if (messages == nullptr || texts == nullptr) return false;
  messages->ErrorNumber(number);
  messages->Prepare(description, kind, std::nullopt);
  const std::string text = texts->Text(failureText, {procedure});
  messages->Show(text, kind, Value(module), buttons, std::nullopt, true);
  return true;
}

}  // namespace

namespace basAllgemein {

void ShowInfoBox(HostContext& context, std::int32_t number, const std::string& description,
                 const std::string& procedure, std::int16_t kind, std::int32_t buttons,
                 const std::string& module) {
  const WorkPause pause(context.progress());
  bool shown = false;
  // Where the facility fails itself, the user hears of the failure all the same.
  ignoringFailures(
      [&] { shown = shownByHost(context, number, description, procedure, kind, buttons, module); });
  if (shown) return;
  context.forms().MsgBox(module + "\r\n" + procedure + ": " + description, buttons,
                         "Fehler " + std::to_string(number));
}

std::int32_t MsgBoxEx(HostContext& context, const std::string& prompt, std::int32_t buttons,
                      const std::string& title) {
  const WorkPause pause(context.progress());
  std::int32_t answer = 0;
  ignoringFailures([&] {
    HostMessages* messages = usesHostsBoxes(context) ? context.host().Messages() : nullptr;
    if (messages != nullptr) {
      answer = messages->Show(prompt, questionKind, std::nullopt, buttons, Value(title), false);
    } else if (usesHostsBoxes(context) || context.LngApplication() == 2) {
      answer = context.forms().MsgBox(prompt, buttons, title);
    }
  });
  return answer;
}

Value NzValue(const Value& value, const Value& replacement) {
  if (value.isNull() || value.isEmpty() || value == Value("")) return replacement;
  return value;
}

}  // namespace basAllgemein

Error currentFailure() {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return Error(outOfMemory, "", "Nicht genügend Speicher");
  } catch (const std::exception& error) {
    return Error(internalError, "", error.what());
  } catch (...) {
    return Error(internalError, "", "Interner Fehler");
  }
}

void reportCurrentFailure(HostContext& context, const Procedure& procedure) noexcept {
  ignoringFailures([&] {
    const Error failure = currentFailure();
    basAllgemein::ShowInfoBox(context, failure.number(), failure.description(), procedure.name,
                              failureKind, msg_box::exclamation, procedure.module);
  });
}

}  // namespace vexnumkr

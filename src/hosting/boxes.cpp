#include "hosting/boxes.h"

#include <optional>

namespace vexnumkr {
namespace {

constexpr std::int32_t failureText = 10055;  // the host's text that names the failed procedure
constexpr std::int16_t failureKind = 3;
constexpr std::int16_t questionKind = 4;

// Asked for anew before each use: the host may take it away in the use before.
template <class Facility>
Facility& facility(Facility* offered) {
  if (offered == nullptr) throw Error::objectNotSet();
  return *offered;
}

}  // namespace

// Whether the host's facility has shown the failure. A host without one has not.
bool Boxes::shownByHost(std::int32_t number, const std::string& description,
                        const std::string& procedure, std::int16_t kind, std::int32_t buttons,
                        const std::string& module) {
  if (!usesHostsBoxes()) return false;
  if (host_.Messages() == nullptr || host_.Texts() == nullptr) return false;
  facility(host_.Messages()).ErrorNumber(number);
  facility(host_.Messages()).Prepare(description, kind, std::nullopt);
  const std::string text = facility(host_.Texts()).Text(failureText, {procedure});
  facility(host_.Messages()).Show(text, kind, Value(module), buttons, std::nullopt, true);
  return true;
}

void Boxes::ShowInfoBox(std::int32_t number, const std::string& description,
                        const std::string& procedure, std::int16_t kind, std::int32_t buttons,
                        const std::string& module) {
  const WorkPause pause(progress_);
  bool shown = false;
  // Where the facility fails itself, the user hears of the failure all the same.
  ignoringFailures(
      [&] { shown = shownByHost(number, description, procedure, kind, buttons, module); });
  if (shown) return;
  forms_.MsgBox(module + "\r\n" + procedure + ": " + description, buttons,
                "Fehler " + std::to_string(number));
}

std::int32_t Boxes::MsgBoxEx(const std::string& prompt, std::int32_t buttons,
                             const std::string& title) {
  const WorkPause pause(progress_);
  std::int32_t answer = 0;
  ignoringFailures([&] {
    HostMessages* messages = usesHostsBoxes() ? host_.Messages() : nullptr;
    if (messages != nullptr) {
      answer = messages->Show(prompt, questionKind, std::nullopt, buttons, Value(title), false);
    } else if (usesHostsBoxes() || application_ == 2) {
      answer = forms_.MsgBox(prompt, buttons, title);
    }
  });
  return answer;
}

void Boxes::failed(const Procedure& procedure, const Error& failure) noexcept {
  ignoringFailures([&] {
    ShowInfoBox(failure.number(), failure.description(), procedure.name, failureKind,
                msg_box::exclamation, procedure.module);
  });
}

}  // namespace vexnumkr

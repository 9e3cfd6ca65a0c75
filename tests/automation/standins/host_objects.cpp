#include "automation/standins/host_objects.h"

#include <fstream>
#include <string>

#include <vexnumkr/error.h>

#include "automation/standins/call_log.h"
#include "automation/standins/environment.h"

namespace vexnumkr::standins {

using automation::LateBound;
using automation::Variant;

namespace {

constexpr std::int32_t bookingCircles = 27;

std::string settingsFile() { return environment(L"VEXNUMKR_SETTINGS"); }

}  // namespace

BookingCircleObject::BookingCircleObject() : DispatchObject("vxtComDlg.WWSDialog") {
  // A property that takes an object, but does not say that it takes references.
  property(L"Connection", nullptr, [this](Call& call) { connection_ = LateBound(call.object(0)); });
  property(
      L"MultiSelect", [this](Call& call) { call.answer(Variant(multiSelect_)); },
      [this](Call& call) { multiSelect_ = call.flag(0); });
  method(L"Show", [this](Call& call) { show(call); });
}

void BookingCircleObject::show(const Call& call) {
  if (call.number(1) != bookingCircles) throw Refusal{E_INVALIDARG};
  const HWND dialog = FindWindowW(nullptr, L"Nummernkreise");
  logCall(std::string("the dialog takes input: ") + (IsWindowEnabled(dialog) ? "True" : "False"));
  const Variant statement("INSERT INTO Nummernkreis_Buchungskreise VALUES (77, 'Vom Host', '" +
                          call.text(0) + "')");
  connection_.call("Execute", {&statement});
}

SettingsObject::SettingsObject() : DispatchObject("VEXSetting.VXSettings") {
  method(L"Init", [this](Call& call) {
    if (call.number(0) != 0) throw Refusal{E_INVALIDARG};
    connection_ = LateBound(call.object(1));
  });
  method(L"GetSetting", [this](Call& call) { read(call); });
  method(L"SaveSetting", [this](Call& call) { write(call); });
}

void SettingsObject::read(const Call& call) const {
  if (!connection_) throw Error::objectNotSet();
  if (call.count() != 6) throw Refusal{DISP_E_BADPARAMCOUNT};
  const std::string key = call.text(0) + '/' + call.text(1) + '=';
  std::string value = call.text(5);
  std::ifstream file(settingsFile());
  for (std::string line; std::getline(file, line);)
    if (line.starts_with(key)) value = line.substr(key.size());
  call.deliver(2, Variant(value));
}

void SettingsObject::write(const Call& call) const {
  if (!connection_) throw Error::objectNotSet();
  if (call.count() != 4) throw Refusal{DISP_E_BADPARAMCOUNT};
  std::ofstream(settingsFile(), std::ios::app | std::ios::binary)
      << call.text(0) << '/' << call.text(1) << '=' << call.text(2) << '\n';
}

}  // namespace vexnumkr::standins

#include "dialogs/side/frmOptionen.h"

#include "dialogs/side/option_pairs.h"

namespace vexnumkr {
namespace {

constexpr const char* section = "Buchungskreise";
constexpr const char* standardProfile = "Standard";
constexpr const char* firstChoice = "0";
constexpr const char* secondChoice = "1";

}  // namespace

frmOptionen::frmOptionen(Session& session)
    : session_(session), form_(session.forms().createForm(optionsDialogDescription(), *this)) {
  for (const OptionPair& pair : optionPairs())
    form_->control<OptionButton>(pair.name, 0).Value(true);
  form_->control<Button>("cmdOK").OnClick([this] { cmdOK_Click(); });
  form_->control<Button>("cmdCancel").OnClick([this] { cmdCancel_Click(); });
}

frmOptionen::~frmOptionen() = default;

void frmOptionen::Form_Load() {
  ignoringFailures([&] {
    // The settings store is the host's, and its statements are its own.
    if (session_.sharedConn() == nullptr) throw Error::objectNotSet();
    connection_ = session_.sharedConn()->createConnection();
    connection_->ConnectionString(session_.Conn().ConnectionString());
    connection_->Open("", "", ado::unspecified);
  });
  ignoringFailures([&] { createSettings(); });
  for (const OptionPair& pair : optionPairs()) {
    if (pair.isKept())
      ignoringFailures([&] { select(pair.name, readSetting(pair.keyRead, firstChoice)); });
  }
}

void frmOptionen::createSettings() {
  auto component = session_.host().CreateObject(component_name::settings);
  auto* settings = dynamic_cast<SettingsStore*>(component.get());
  if (settings == nullptr) throw Error::cannotCreateObject();
  static_cast<void>(component.release());
  settings_.reset(settings);
  if (connection_ == nullptr) throw Error::objectNotSet();
  settings_->Init(0, *connection_);
}

std::string frmOptionen::readSetting(const std::string& key, const std::string& defaultValue) {
  if (settings_ == nullptr) throw Error::objectNotSet();
  std::string value;
  settings_->GetSetting(section, key, value, standardProfile, standardProfile, defaultValue);
  return value;
}

// A stored value that is neither 0 nor 1 has no button.
void frmOptionen::select(const std::string& pair, const std::string& value) {
  form_->control<OptionButton>(pair, textToLong(value)).Value(true);
}

void frmOptionen::save(const std::string& pair, const std::string& key) {
  if (settings_ == nullptr) throw Error::objectNotSet();
  const bool second = form_->control<OptionButton>(pair, 1).Value();
  settings_->SaveSetting(section, key, second ? secondChoice : firstChoice, standardProfile);
}

void frmOptionen::cmdOK_Click() {
  for (const OptionPair& pair : optionPairs()) {
    if (pair.isKept()) ignoringFailures([&] { save(pair.name, pair.keyWritten); });
  }
  ignoringFailures([&] { form_->Unload(); });
}

void frmOptionen::cmdCancel_Click() {
  ignoringFailures([&] { form_->Unload(); });
}

void frmOptionen::Form_Unload() {
  settings_.reset();
  ignoringFailures([&] {
    if (connection_ != nullptr) connection_->Close();
  });
  connection_.reset();
}

}  // namespace vexnumkr

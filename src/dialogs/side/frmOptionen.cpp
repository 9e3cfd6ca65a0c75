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
    if (connection_ == nullptr) throw Error::objectNotSet();
    connection_->OnLockWait(&session_.lockNotice());
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
  auto* created = dynamic_cast<SettingsStore*>(component.get());
  if (created == nullptr) throw Error::cannotCreateObject();
  static_cast<void>(component.release());
  settings_.reset(created);
  if (connection_ == nullptr) throw Error::objectNotSet();
  settings().Init(0, *connection_);
}

// The host may have taken the component away while its store was at work.
SettingsStore& frmOptionen::settings() const {
  if (settings_ == nullptr || session_.isAbandoned()) throw Error::objectNotSet();
  return *settings_;
}

std::string frmOptionen::readSetting(const std::string& key, const std::string& defaultValue) {
  std::string value;
  settings().GetSetting(section, key, value, standardProfile, standardProfile, defaultValue);
  return value;
}

// A stored value that is neither 0 nor 1 has no button.
void frmOptionen::select(const std::string& pair, const std::string& value) {
  form_->control<OptionButton>(pair, textToLong(value)).Value(true);
}

void frmOptionen::save(const std::string& pair, const std::string& key) {
  const bool second = form_->control<OptionButton>(pair, 1).Value();
  settings().SaveSetting(section, key, second ? secondChoice : firstChoice, standardProfile);
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

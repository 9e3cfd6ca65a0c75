// The dialog for how follow-up documents find their number range.
#pragma once

#include <memory>
#include <string>

#include <vexnumkr/host_components.h>

#include "hosting/session.h"
#include "platform/forms.h"

namespace vexnumkr {

/// Stores the choices through the host's settings component, on a connection of its own and so
/// outside the main dialog's transaction; the host reads them elsewhere. Nothing is reported:
/// without the component the choices show their defaults and OK writes nothing.
class frmOptionen final : private FormEvents {
 public:
  explicit frmOptionen(Session& session);
  ~frmOptionen() override;

  void Show() { form_->ShowModal(); }

 private:
  void Form_Load() override;
  void Form_Unload() override;

  void cmdOK_Click();
  void cmdCancel_Click();

  void createSettings();
  SettingsStore& settings() const;
  std::string readSetting(const std::string& key, const std::string& defaultValue);
  void select(const std::string& pair, const std::string& value);
  void save(const std::string& pair, const std::string& key);

  Session& session_;
  std::unique_ptr<Form> form_;
  std::unique_ptr<Connection> connection_;
  std::unique_ptr<SettingsStore> settings_;  // after the connection that it uses
};

}  // namespace vexnumkr

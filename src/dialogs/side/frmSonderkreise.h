// The dialog that switches special ranges on and off.
#pragma once

#include <memory>

#include <vexnumkr/database.h>

#include "hosting/session.h"
#include "platform/forms.h"

namespace vexnumkr {

/// Lists the special ranges of the origin. OK writes every entry's state into the database at once,
/// inside the transaction of the main dialog; closing otherwise writes nothing. List entry n is
/// record n of one recordset that stays open as long as the form.
class frmSonderkreise final : private FormEvents {
 public:
  explicit frmSonderkreise(Session& session);
  ~frmSonderkreise() override;

  Form& form() { return *form_; }
  void Show() { form_->ShowModal(); }

 private:
  void Form_Load() override;
  void Form_Unload() override;
  void Form_Resize() override;

  void cmdOK_Click();
  void cmdCancel_Click();
  void SaveSettings();

  Session& session_;
  std::unique_ptr<Form> form_;
  CheckList& lstSonderkreise_;
  std::unique_ptr<Recordset> records_;
};

}  // namespace vexnumkr

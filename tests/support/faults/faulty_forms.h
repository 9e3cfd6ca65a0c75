// A forms toolkit that fails where it is told to.
//
// It forwards everything to a real toolkit, so that what a test works are real windows.
//
//   FormsFaults faults;
//   FaultyForms forms(makeQtFormsToolkit(), faults);
//   faults.fail("cboUser.Text");       // the next time that a dialog reads it
//   faults.fail("cboUser.ListIndex=");  // the next time that a dialog sets it
//   faults.fail("createForm frmOptionen");
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms.h"

namespace vexnumkr::test {

/// The orders for a faulty toolkit.
class FormsFaults {
 public:
  /// The next call of that member, "NAME.MEMBER" of a form or control, "NAME.MEMBER=" of a setter,
  /// raises error 4711 and does nothing. Replaces an earlier order.
  void fail(const std::string& call) { call_ = call; }
  /// Withdraws the order and returns its call.
  std::string takeCall() { return std::exchange(call_, {}); }
  /// Whether the call has not come yet.
  bool isPending() const { return !call_.empty(); }

  /// For the faulty objects: raises the error where the call is to fail.
  void check(const std::string& call);

 private:
  std::string call_;
};

/// `faults` is borrowed and outlives the toolkit and its forms.
class FaultyForms final : public FormsToolkit {
 public:
  FaultyForms(std::unique_ptr<FormsToolkit> real, FormsFaults& faults)
      : real_(std::move(real)), faults_(faults) {}

  std::unique_ptr<Form> createForm(const FormDescription& description, FormEvents& events) override;
  std::int32_t MsgBox(const std::string& prompt, std::int32_t buttons,
                      const std::string& title) override;
  void SetMousePointer(MousePointer pointer) override;
  void DoEvents() override;
  void closeAll() noexcept override { real_->closeAll(); }

 private:
  std::unique_ptr<FormsToolkit> real_;
  FormsFaults& faults_;
};

}  // namespace vexnumkr::test

#include "adapters/qtforms/qt_forms_toolkit.h"

#include <QCoreApplication>
#include <QEventLoop>

#include "adapters/qt/fonts.h"
#include "adapters/qtforms/busy_pointer.h"
#include "adapters/qtforms/message_box.h"
#include "adapters/qtforms/open_windows.h"
#include "adapters/qtforms/qt_form.h"

namespace vexnumkr {
namespace {

using namespace qtforms;

class QtFormsToolkit final : public FormsToolkit {
 public:
  QtFormsToolkit() { registerFontSubstitutes(); }

  std::unique_ptr<Form> createForm(const FormDescription& description,
                                   FormEvents& events) override {
    return std::make_unique<QtForm>(description, events, windows_);
  }

  std::int32_t MsgBox(const std::string& prompt, std::int32_t buttons,
                      const std::string& title) override {
    const BusyPointer::Pause ordinaryPointer(pointer_);
    return showMessageBox(prompt, buttons, title, windows_);
  }

  void SetMousePointer(MousePointer pointer) override {
    pointer_.set(pointer == MousePointer::Hourglass);
  }

  void DoEvents() override { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

  void closeAll() noexcept override { windows_.closeAll(); }

 private:
  OpenWindows windows_;
  BusyPointer pointer_;
};

}  // namespace

std::unique_ptr<FormsToolkit> makeQtFormsToolkit() { return std::make_unique<QtFormsToolkit>(); }

}  // namespace vexnumkr

#include "adapters/qtforms/qt_forms_toolkit.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QStandardPaths>

#include "adapters/qt/fonts.h"
#include "adapters/qtforms/busy_pointer.h"
#include "adapters/qtforms/form_memory.h"
#include "adapters/qtforms/message_box.h"
#include "adapters/qtforms/open_windows.h"
#include "adapters/qtforms/qt_form.h"

namespace vexnumkr {
namespace {

using namespace qtforms;

class QtFormsToolkit final : public FormsToolkit {
 public:
  explicit QtFormsToolkit(const QString& memoryFile) : memory_(memoryFile) {
    registerFontSubstitutes();
  }

  std::unique_ptr<Form> createForm(const FormDescription& description,
                                   FormEvents& events) override {
    return std::make_unique<QtForm>(description, events, windows_, memory_);
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
  FormMemory memory_;
  BusyPointer pointer_;
};

}  // namespace

std::unique_ptr<FormsToolkit> makeQtFormsToolkit(const QString& memoryFile) {
  return std::make_unique<QtFormsToolkit>(memoryFile);
}

QString usersMemoryFile() {
  if (QCoreApplication::instance() == nullptr) return {};
  const QString platform = QGuiApplication::platformName();
  if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal")) return {};
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QLatin1String("/vexal/nummernkreise.ini");
}

}  // namespace vexnumkr

#include "component/process.h"

#include <QApplication>
#include <clocale>
#include <memory>
#include <string>

#include <vexnumkr/error.h>

#include "adapters/qtforms/dialog_thread.h"

namespace vexnumkr {
namespace {

void makeApplication() {
  // Die with the process: what they release then could only fail.
  static int argumentCount = 1;
  static char name[] = "vexnumkr";
  static char* arguments[] = {name, nullptr};

  const std::string locale = std::setlocale(LC_ALL, nullptr);
  QCoreApplication::setAttribute(Qt::AA_PluginApplication);
  static_cast<void>(std::make_unique<QApplication>(argumentCount, arguments).release());
  QGuiApplication::setQuitOnLastWindowClosed(false);
  std::setlocale(LC_ALL, locale.c_str());
}

}  // namespace

void requireDialogThread() {
  if (!isDialogThread())
    throw Error(error_number::cannotCreateObject, "VEXNummernkreise",
                "Es gibt keine QApplication, oder dies ist nicht ihr Thread.");
}

bool haveApplication() {
  if (QCoreApplication::instance() == nullptr && hasDisplay()) makeApplication();
  return isDialogThread();
}

}  // namespace vexnumkr

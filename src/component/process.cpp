#include "component/process.h"

#include <dlfcn.h>

#include <QApplication>
#include <clocale>
#include <memory>
#include <string>

#include <vexnumkr/error.h>

#include "adapters/qtforms/dialog_thread.h"

namespace vexnumkr {
namespace {

/// Without a display Qt would end the process.
bool hasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

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

void stayLoaded() noexcept {
  Dl_info self = {};
  if (dladdr(reinterpret_cast<const void*>(&stayLoaded), &self) != 0)
    dlopen(self.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

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

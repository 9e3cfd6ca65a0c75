#include "windows/dialog_application.h"

#include <QApplication>
#include <QFileInfo>
#include <QThread>
#include <memory>
#include <string>

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/failure.h"
#include "windows/module.h"

namespace vexnumkr::server {
namespace {

QString folderOf(const std::wstring& file) {
  return QFileInfo(QString::fromStdWString(file)).absolutePath();
}

Error impossible(const char* why) {
  return Error(automation::runtime_number::automationError, "VEXNummernkreise", why);
}

void makeApplication() {
  // Dies with the process: what it releases then could only fail.
  static int argumentCount = 3;
  static char name[] = "VEXNumKr";
  static char option[] = "-platform";
  static char platform[] = "windows";
  static char* arguments[] = {name, option, platform, nullptr};

  // Where Qt is not inside, its plugins lie beside the library file. Those of another Qt, which the
  // host may have, would not fit.
  const QStringList plugins = {folderOf(Module::path())};
  QCoreApplication::setLibraryPaths(plugins);
  QCoreApplication::setAttribute(Qt::AA_PluginApplication);
  auto application = std::make_unique<QApplication>(argumentCount, arguments);
  QCoreApplication::setLibraryPaths(plugins);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  static_cast<void>(application.release());
}

}  // namespace

void requireDialogApplication() {
  if (QCoreApplication::instance() == nullptr) makeApplication();
  Module::instance().stay();
  if (QThread::currentThread() != QCoreApplication::instance()->thread())
    throw impossible("Die Dialoge gehören zu einem anderen Thread dieses Programms.");
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw impossible("Dieses Programm kann keine Dialoge von Qt zeigen.");
}

void showPlainFailure(const Error& error, const char* procedure) {
  const std::wstring title = automation::toWide("Fehler " + std::to_string(error.number()));
  const std::wstring prompt =
      automation::toWide(std::string("VXNummernkreise\r\n") + procedure + ": " + error.what());
  MessageBoxW(nullptr, prompt.c_str(), title.c_str(), MB_ICONEXCLAMATION | MB_TASKMODAL);
}

}  // namespace vexnumkr::server

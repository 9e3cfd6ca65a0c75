#include "automation/standins/qt_application.h"

#include <QCoreApplication>

#include "automation/standins/dispatch_object.h"

namespace vexnumkr::standins {
namespace {

struct Application {
  int count = 1;
  char name[8] = "standin";
  char* arguments[2] = {name, nullptr};
  QCoreApplication application{count, arguments};
  ModuleUse use;
};

}  // namespace

// Never destroyed: when the process ends, the threads that Qt would wait for are gone already.
void requireQtApplication() { [[maybe_unused]] static auto* const application = new Application; }

}  // namespace vexnumkr::standins

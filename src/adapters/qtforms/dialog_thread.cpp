#include "adapters/qtforms/dialog_thread.h"

#include <QApplication>
#include <QThread>

bool vexnumkr::isDialogThread() {
  const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
  return application != nullptr && application->thread() == QThread::currentThread();
}

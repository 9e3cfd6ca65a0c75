// The application object that Qt's drivers want.
#pragma once

#include <QCoreApplication>

namespace vexnumkr::fuzz {

/// Makes the process's one; it lives to its end.
inline void needApplication() {
  static int count = 1;
  static char name[] = "fuzz";
  static char* arguments[] = {name, nullptr};
  static QCoreApplication application(count, arguments);
}

}  // namespace vexnumkr::fuzz

// The main program of tests on Qt SQL: the application object, and no warning of Qt's goes
// unnoticed.
#include <gtest/gtest.h>

#include <QCoreApplication>

namespace {

void failOnWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  // Of any change that an ODBC driver refuses; the adapter raises that as an error.
  if (message.startsWith(QLatin1String("QODBCResult::exec: Unable to execute statement"))) return;
  ADD_FAILURE() << "Qt warns: " << message.toStdString();
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  qInstallMessageHandler(failOnWarnings);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

// A host without the application object that dialogs need, or with less than one.
#include <gtest/gtest.h>

#include <QApplication>
#include <QGuiApplication>
#include <memory>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>
#include <vexnumkr/error.h>
#include <vexnumkr/message_box.h>

#include "support/error_of.h"

namespace vexnumkr::test {
namespace {

int argumentCount = 1;
char name[] = "test";
char* arguments[] = {name, nullptr};

void expectNoDialogs() {
  EXPECT_EQ(errorOf([] { createVXNummernkreise(emptyHost()); }), error_number::cannotCreateObject);
  EXPECT_EQ(errorOf([] { showMessageBox("Text", 0, "Titel"); }), error_number::cannotCreateObject);
}

void expectNothingByName() {
  EXPECT_EQ(vexnumkrCreateObject("VXNummernkreise", nullptr), nullptr);
  EXPECT_EQ(vexnumkrOpenConnection("Driver=QSQLITE;Database=:memory:", nullptr, 0), nullptr);
}

// By name a host without an application is given one, which would last.
TEST(MisuseApplicationTest, WithoutOneNothingIsMade) {
  expectNoDialogs();
  EXPECT_NE(errorOf([] { openQtSqlConnection("Driver=QSQLITE;Database=:memory:"); }), 0);
}

TEST(MisuseApplicationTest, OneWithoutWindowsServesConnectionsOnly) {
  const QCoreApplication application(argumentCount, arguments);
  expectNoDialogs();
  expectNothingByName();
  EXPECT_EQ(errorOf([] { openQtSqlConnection("Driver=QSQLITE;Database=:memory:"); }), 0);
}

TEST(MisuseApplicationTest, OneWithoutWidgetsIsNotEnough) {
  const QGuiApplication application(argumentCount, arguments);
  expectNoDialogs();
  expectNothingByName();
}

TEST(MisuseApplicationTest, AComponentThatOutlivesItDoesNothingAndCanBeReleased) {
  auto application = std::make_unique<QApplication>(argumentCount, arguments);
  auto connection = openQtSqlConnection("Driver=QSQLITE;Database=:memory:");
  std::int32_t affected = 0;
  connection->Execute("CREATE TABLE tblUser (strUserName_PK VARCHAR(50))", affected);
  auto component = createVXNummernkreise(emptyHost());
  ASSERT_TRUE(component->Init(connection, 2, "Becker"));
  application.reset();
  EXPECT_FALSE(component->Init(connection, 2, "Becker"));
  component->ShowDialog();
  component.reset();
  connection.reset();
}

}  // namespace
}  // namespace vexnumkr::test

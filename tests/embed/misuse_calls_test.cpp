// A host that calls the component in the wrong order or in the middle of something, and whose own
// parts hand back nothing or the wrong thing: the user is told in a box, and nothing is stored.
#include <QSqlDatabase>

#include "embed/misuse/misuse_session.h"

namespace vexnumkr::test {
namespace {

const std::string objectNotSet = "Fehler 91: ";
const std::string cannotCreateObject = "Fehler 429: ";

using MisuseCallsTest = MisuseSession;

TEST_F(MisuseCallsTest, ShowDialogWithoutInitTellsWhatIsMissing) {
  component->ShowDialog();
  EXPECT_TRUE(hasBox(user.takeBoxes(), objectNotSet));
  EXPECT_TRUE(isUnchanged());
}

TEST_F(MisuseCallsTest, InitWithoutAConnectionFails) {
  EXPECT_FALSE(component->Init(nullptr, 2, "Becker"));
  EXPECT_TRUE(hasBox(user.takeBoxes(), objectNotSet));
  component->ShowDialog();
  EXPECT_TRUE(hasBox(user.takeBoxes(), objectNotSet));
}

TEST_F(MisuseCallsTest, InitWithNonsenseIsNoCrash) {
  const std::string bytes("\0\xff\xc3'; DROP TABLE Nummernkreise; --\n", 36);
  for (const std::int32_t application : {-1, 0, 3, INT32_MIN, INT32_MAX}) {
    component->Init(connection, application, bytes, bytes);
    component->ShowDialog();
  }
  user.presses = {"cmdAuto", "cmdOK"};
  component->Init(connection, 2, std::string(1'000'000, 'x'), std::string(1'000'000, '9'));
  component->ShowDialog();
  EXPECT_TRUE(isFree());
}

TEST_F(MisuseCallsTest, ADatabaseLayerThatHandsBackNothingIsTold) {
  for (const char* member : {"createCommand", "createConnection", "Command.Execute", "Execute"}) {
    SCOPED_TRACE(member);
    renew();
    user.presses = {"cmdAuto", "cmdSonderkreise", "cmdOptionen", "cmdOK"};
    user.takeBoxes();
    hooks.givesNull = {member};
    ASSERT_TRUE(init());
    component->ShowDialog();
    EXPECT_TRUE(hasBox(user.takeBoxes(), objectNotSet));
    EXPECT_TRUE(isUnchanged());
    EXPECT_TRUE(isFree());
  }
}

TEST_F(MisuseCallsTest, ADatabaseLayerWithoutRecordsetsFailsInit) {
  hooks.givesNull = {"createRecordset"};
  EXPECT_FALSE(init());
  EXPECT_TRUE(hasBox(user.takeBoxes(), objectNotSet));
}

TEST_F(MisuseCallsTest, HostComponentsThatAreNotThereAreTold) {
  user.presses = {"cmdBuchungskreise", "cmdOptionen"};
  for (const bool confuses : {false, true}) {
    if (!confuses) host.givesNull = {"CreateObject"};
    host.confuses = confuses;
    ASSERT_TRUE(init());
    component->ShowDialog();
    const auto boxes = user.takeBoxes();
    EXPECT_TRUE(hasBox(boxes, cannotCreateObject));
    EXPECT_TRUE(hasBox(boxes, objectNotSet)) << "where they are used";
    host.givesNull.clear();
  }
}

TEST_F(MisuseCallsTest, AFacilityThatGoesInTheMiddleOfABoxIsReplaced) {
  for (const char* member : {"Messages", "Texts"}) {
    SCOPED_TRACE(member);
    host.before = [&](const std::string& entered) {
      if (entered == "Prepare") host.givesNull = {member};
    };
    EXPECT_FALSE(component->Init(nullptr, 1, "Becker"));
    EXPECT_TRUE(hasBox(user.takeBoxes(), objectNotSet)) << "a box of the component's own";
    host.givesNull.clear();
  }
}

TEST_F(MisuseCallsTest, CallingItAgainFromAnywhereDoesNothing) {
  user.presses = {"cmdBuchungskreise", "cmdOptionen", "cmdAuto", "cmdOK"};
  int depth = 0;
  const auto again = [&](const std::string&) {
    if (depth > 0) return;
    ++depth;
    const int windows = user.windows();
    EXPECT_FALSE(component->Init(real, 1, "Max"));
    component->ShowDialog();
    EXPECT_EQ(user.windows(), windows);
    --depth;
  };
  hooks.before = again;
  EXPECT_TRUE(init(1));
  host.before = again;
  component->ShowDialog();
  EXPECT_FALSE(isUnchanged()) << "what was begun goes on";
  EXPECT_TRUE(isFree());
}

TEST_F(MisuseCallsTest, TwoComponentsShareAConnectionOneAfterTheOther) {
  const auto second = createVXNummernkreise(host);
  ASSERT_TRUE(second->Init(connection, 2, "Max"));
  bool nested = false;
  user.whenUp = [&](const std::string& name) {
    if (name != "frmNummernkreise" || std::exchange(nested, true)) return;
    second->ShowDialog();
  };
  ASSERT_TRUE(init());
  component->ShowDialog();
  EXPECT_TRUE(nested);
  EXPECT_TRUE(isFree());
  EXPECT_TRUE(isUnchanged());
}

TEST_F(MisuseCallsTest, ClosingTheConnectionUnderTheDialogFailsTheSave) {
  user.presses = {"cmdAuto", "cmdOK"};
  user.whenUp = [&, closed = false](const std::string& name) mutable {
    if (name == "frmNummernkreise" && !std::exchange(closed, true)) real->Close();
  };
  ASSERT_TRUE(init());
  component->ShowDialog();
  EXPECT_TRUE(hasBox(user.takeBoxes(), "Fehler 3704: "));
  EXPECT_TRUE(isUnchanged());
}

TEST_F(MisuseCallsTest, TakingABorrowedDatabaseAwayUnderTheDialogFailsTheSave) {
  const QString name = QStringLiteral("borrowed");
  auto borrowed =
      std::make_unique<QSqlDatabase>(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name));
  borrowed->setDatabaseName(QString::fromStdString(database->file()));
  ASSERT_TRUE(borrowed->open());
  user.presses = {"cmdAuto", "cmdOK"};
  user.whenUp = [&](const std::string& window) {
    if (window != "frmNummernkreise" || !borrowed) return;
    borrowed->close();
    borrowed.reset();
    QSqlDatabase::removeDatabase(name);
  };
  ASSERT_TRUE(component->Init(borrowQtSqlConnection(*borrowed), 2, "Becker"));
  component->ShowDialog();
  EXPECT_FALSE(user.takeBoxes().empty());
  EXPECT_TRUE(isUnchanged());
}

}  // namespace
}  // namespace vexnumkr::test

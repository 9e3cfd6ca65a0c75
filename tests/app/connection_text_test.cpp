#include "app/connection_text.h"

#include <gtest/gtest.h>

#include "app/process_list.h"

namespace vexnumkr::app {
namespace {

TEST(ConnectionText, FindsKeysWithoutRegardToCase) {
  const ConnectionText text("driver=QSQLITE; DATABASE = /a b/c.db ;");
  EXPECT_EQ(text.value("Driver"), "QSQLITE");
  EXPECT_EQ(text.value("Database"), "/a b/c.db");
  EXPECT_EQ(text.value("PWD"), "");
}

TEST(ConnectionText, ReadsQuotedValues) {
  const ConnectionText text(R"(PWD=" a;""b""";Database=c=d)");
  EXPECT_EQ(text.value("PWD"), R"( a;"b")");
  EXPECT_EQ(text.value("Database"), "c=d");
}

TEST(ConnectionText, PassesOverWhatIsNoPair) {
  EXPECT_EQ(ConnectionText("").text(), "");
  EXPECT_EQ(ConnectionText(";;quatsch;Driver=X").text(), "Driver=X");
}

TEST(ConnectionText, WritesWhatItReads) {
  for (const std::string value : {"plain", " leading", "trailing ", "semi;colon", "quo\"te", ""}) {
    ConnectionText text("Driver=X");
    text.set("Database", value);
    EXPECT_EQ(ConnectionText(text.text()).value("Database"), value) << text.text();
  }
}

TEST(ConnectionText, ReplacesAValueInItsPlace) {
  ConnectionText text("Driver=X;Database=a;UID=u");
  text.set("DATABASE", "b");
  EXPECT_EQ(text.text(), "Driver=X;Database=b;UID=u");
}

TEST(ConnectionText, NamesASqliteFile) {
  EXPECT_EQ(sqliteConnectionText("/tmp/a.db"), "Driver=QSQLITE;Database=/tmp/a.db");
  EXPECT_EQ(sqliteConnectionText("/tmp/a;b.db"), "Driver=QSQLITE;Database=\"/tmp/a;b.db\"");
}

TEST(Passwords, AreMasked) {
  const std::string connection = "Driver=QPSQL;UID=u;PWD=geheim";
  EXPECT_EQ(withoutPassword("geheim ist geheim", connection), "*** ist ***");
  EXPECT_EQ(withoutPassword("alles gut", connection), "alles gut");
  EXPECT_EQ(withoutPassword("ohne Kennwort", "Driver=QSQLITE"), "ohne Kennwort");
  EXPECT_EQ(withoutPassword("**", "PWD=*"), "******");
}

TEST(Passwords, AreMaskedInOdbcConnectionStringsToo) {
  const std::string connection =
      "Driver=QODBC;Database=\"DRIVER={X};Server=s;Pwd={ge;heim};UID=u\";PWD=auch";
  EXPECT_EQ(withoutPassword("ge;heim und auch", "Driver=QODBC;PWD=auch"), "ge;heim und ***");
  EXPECT_EQ(withoutPassword("auch", connection), "***");
  EXPECT_EQ(withoutPassword("geheim", "Driver=QODBC;Database=\"DSN=x;Password=geheim\""), "***");
}

TEST(Passwords, InBracesAreMaskedAsAWhole) {
  for (const std::string connection :
       {"Driver=QODBC;Database=\"DRIVER={X};Server=s;Pwd={ge;h}}eim};UID=u\"",
        "Driver=QODBC;Database=DSN=x;PWD={ge;h}}eim};UID=u",
        "Driver=QODBC;Database=DSN=x;Options=\"PWD={ge;h}}eim};UID=u\""}) {
    EXPECT_EQ(withoutPassword("-ge;h}eim-", connection), "-***-") << connection;
    EXPECT_EQ(withoutPassword("-{ge;h}}eim}-", connection), "-***-") << connection;
    EXPECT_EQ(withoutPassword(connection, connection).find("eim"), std::string::npos) << connection;
  }
  EXPECT_EQ(withoutPassword("geheim", "Driver=QMYSQL;Options=PWD=geheim"), "***");
}

TEST(Passwords, MayBeginWithABraceThatNothingCloses) {
  EXPECT_EQ(withoutPassword("{geheim u", "Driver=QPSQL;PWD={geheim;UID=u"), "*** u");
}

TEST(Passwords, MayHoldQuotesWithinQuotes) {
  const std::string connection = "Driver=QODBC;Database=\"DSN=x;PWD=ge\"\"heim\"";
  EXPECT_EQ(withoutPassword(connection, connection), "Driver=QODBC;Database=\"DSN=x;PWD=***\"");
}

TEST(Passwords, InBracesAreHiddenInTheListOfProcesses) {
  std::string name = "vexnumkr-host", option = "--connection";
  std::string text = "Driver=QODBC;Database=DSN=x;PWD={ge;heim};UID=u";
  char* arguments[] = {name.data(), option.data(), text.data()};
  hidePasswords(3, arguments);
  EXPECT_EQ(text, "Driver=QODBC;Database=DSN=x;PWD=*********;UID=u");
}

TEST(Passwords, AreHiddenInTheListOfProcesses) {
  std::string name = "vexnumkr-host", option = "--connection", user = "--user";
  std::string spaced = "Driver=QPSQL;Database=f;PWD=geheim;UID=u";
  std::string joined = "--connection=Driver=QPSQL;PWD=\"ge;heim\"";
  std::string who = "geheim";
  char* arguments[] = {name.data(), option.data(), spaced.data(),
                       user.data(), who.data(),    joined.data()};
  hidePasswords(6, arguments);
  EXPECT_EQ(spaced, "Driver=QPSQL;Database=f;PWD=******;UID=u");
  EXPECT_EQ(joined, "--connection=Driver=QPSQL;PWD=*********");
  EXPECT_EQ(who, "geheim");
}

}  // namespace
}  // namespace vexnumkr::app

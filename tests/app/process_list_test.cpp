#include "app/process_list.h"

#include <gtest/gtest.h>

#include <string>

namespace vexnumkr::app {

TEST(ProcessList, ShowsNoPasswords) {
  std::string program = "vexnumkr-host", option = "--connection", user = "--user=geheim";
  std::string spaced = "Driver=QPSQL;Database=f;PWD=geheim;UID=u";
  std::string joined = "--connection=Driver=QPSQL;PWD=\"ge;heim\"";
  char* arguments[] = {program.data(), option.data(), spaced.data(),
                       user.data(),    joined.data(), nullptr};
  hidePasswords(5, arguments);
  EXPECT_EQ(spaced, "Driver=QPSQL;Database=f;PWD=******;UID=u");
  EXPECT_EQ(joined, "--connection=Driver=QPSQL;PWD=*********");
  EXPECT_EQ(user, "--user=geheim");
}

TEST(ProcessList, ShowsNoneInBraces) {
  std::string program = "vexnumkr-host", option = "--connection";
  std::string text = "Driver=QODBC;Database=DSN=x;PWD={ge;heim};UID=u";
  char* arguments[] = {program.data(), option.data(), text.data(), nullptr};
  hidePasswords(3, arguments);
  EXPECT_EQ(text, "Driver=QODBC;Database=DSN=x;PWD=*********;UID=u");
}

TEST(ProcessList, ShowsTheRestWhereAPasswordIsShort) {
  std::string program = "vexnumkr-host", option = "--connection";
  std::string text = "Driver=QPSQL;Database=abba;PWD=a";
  char* arguments[] = {program.data(), option.data(), text.data(), nullptr};
  hidePasswords(3, arguments);
  EXPECT_EQ(text, "Driver=QPSQL;Database=abba;PWD=*");
}

// Somebody has forgotten the option's name, or taken another one.
TEST(ProcessList, ShowsNoneWhereNoConnectionBelongs) {
  std::string program = "vexnumkr", bare = "Driver=QPSQL;PWD=geheim";
  std::string other = "--application=Driver=QPSQL;PWD=geheim;UID=u";
  char* arguments[] = {program.data(), bare.data(), other.data(), nullptr};
  hidePasswords(3, arguments);
  EXPECT_EQ(bare, "Driver=QPSQL;PWD=******");
  EXPECT_EQ(other, "--application=Driver=QPSQL;PWD=******;UID=u");
}

TEST(ProcessList, MessagesShowNoPasswordOfAnArgument) {
  const std::vector<std::string> arguments = {"vexnumkr", "Driver=QPSQL;PWD=geheim",
                                              "--user=Driver=QPSQL;PWD=\"ver;raten\""};
  EXPECT_EQ(withoutPasswordsOf(arguments, "Driver=QPSQL;PWD=geheim, ver;raten: gibt es nicht."),
            "Driver=QPSQL;PWD=***, ***: gibt es nicht.");
  EXPECT_EQ(withoutPasswordsOf({"--user", "Becker"}, "Becker"), "Becker");
}

}  // namespace vexnumkr::app

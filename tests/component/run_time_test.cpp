// The library as hosts without Qt meet it: this program is not linked with it.
#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>
#include <vexnumkr/version.h>

#include "component/loaded_library.h"

namespace vexnumkr::test {
namespace {

std::string failureOf(const Library& library, const char* connection, std::size_t size) {
  std::string text(size, '?');
  EXPECT_EQ(FUNCTION(library, vexnumkrOpenConnection)(connection, text.data(), size), nullptr);
  return size == 0 ? text : text.c_str();
}

// The tests are in the order in which a host uses the library: what the later ones do lasts.

TEST(ALibraryLoadedAtRunTime, TellsItsVersion) {
  const Library library = load();
  ASSERT_NE(library, nullptr) << dlerror();
  EXPECT_STREQ(FUNCTION(library, vexnumkrVersion)(), vexnumkr::version);
}

TEST(ALibraryLoadedAtRunTime, MakesNothingWhereThereIsNoDisplay) {
  const std::string platform = std::getenv("QT_QPA_PLATFORM");
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  const Library library = load();
  EXPECT_EQ(FUNCTION(library, vexnumkrCreateObject)("VXNummernkreise", nullptr), nullptr);
  EXPECT_EQ(failureOf(library, "Driver=QSQLITE;Database=:memory:", 200),
            "Es gibt keine Anzeige, oder dies ist nicht der Thread der Dialoge.");
  setenv("QT_QPA_PLATFORM", platform.c_str(), 1);
}

TEST(ALibraryLoadedAtRunTime, BringsTheApplication) {
  const Library library = load();
  VXNummernkreise* object = FUNCTION(library, vexnumkrCreateObject)("VXNummernkreise", nullptr);
  EXPECT_NE(object, nullptr);
  FUNCTION(library, vexnumkrReleaseObject)(object);
}

TEST(ALibraryLoadedAtRunTime, LeavesTheLocaleAsItWas) {
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST(ALibraryLoadedAtRunTime, MakesNothingOnAnotherThread) {
  const Library library = load();
  VXNummernkreise* object = nullptr;
  std::thread([&] {
    object = FUNCTION(library, vexnumkrCreateObject)("VXNummernkreise", nullptr);
  }).join();
  EXPECT_EQ(object, nullptr);
}

TEST(ALibraryLoadedAtRunTime, OpensConnections) {
  const Library library = load();
  Connection* connection =
      FUNCTION(library, vexnumkrOpenConnection)("Driver=QSQLITE;Database=:memory:", nullptr, 0);
  ASSERT_NE(connection, nullptr);
  std::int32_t affected = 0;
  EXPECT_NE(connection->Execute("SELECT 1 AS Zahl", affected), nullptr);
  EXPECT_EQ(affected, 1);
  FUNCTION(library, vexnumkrReleaseConnection)(connection);
}

TEST(ALibraryLoadedAtRunTime, SaysWhyAConnectionCannotBeOpened) {
  const Library library = load();
  EXPECT_EQ(failureOf(library, nullptr, 100), "Es fehlt die Verbindung.");
  EXPECT_NE(failureOf(library, "Driver=QSQLITE;Database=/fehlt.db", 200).find("unable to open"),
            std::string::npos);
}

TEST(ALibraryLoadedAtRunTime, CutsTheTextOfAFailureBetweenCharacters) {
  const Library library = load();
  const char* incomplete = "Driver=QSQLITE";
  const std::string whole = failureOf(library, incomplete, 500);
  const std::size_t umlaut = whole.find("ü");
  ASSERT_NE(umlaut, std::string::npos) << whole;
  EXPECT_EQ(failureOf(library, incomplete, umlaut + 2), whole.substr(0, umlaut));
  EXPECT_EQ(failureOf(library, incomplete, umlaut + 3), whole.substr(0, umlaut + 2));
  EXPECT_EQ(failureOf(library, incomplete, 1), "");
  EXPECT_EQ(failureOf(library, incomplete, 0), "");
}

}  // namespace
}  // namespace vexnumkr::test

// A host that closes the library that it has loaded, at once or with its objects alive. This
// program is not linked with it.
#include <gtest/gtest.h>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>
#include <vexnumkr/version.h>

#include "component/loaded_library.h"

namespace vexnumkr::test {
namespace {

// The tests are in the order in which a host uses the library: what the later ones do lasts.

TEST(MisuseUnloadTest, BeforeItsFirstUseItGoes) {
  Library library = load();
  ASSERT_NE(library, nullptr) << dlerror();
  EXPECT_TRUE(isLoaded());
  EXPECT_STREQ(FUNCTION(library, vexnumkrVersion)(), version);
  library.reset();
  EXPECT_FALSE(isLoaded());
}

TEST(MisuseUnloadTest, AfterItsFirstUseItStays) {
  Library library = load();
  VXNummernkreise* object = FUNCTION(library, vexnumkrCreateObject)("VXNummernkreise", nullptr);
  EXPECT_NE(object, nullptr);
  FUNCTION(library, vexnumkrReleaseObject)(object);
  library.reset();
  EXPECT_TRUE(isLoaded());
}

TEST(MisuseUnloadTest, WhatItHasMadeGoesOnWorking) {
  Library library = load();
  VXNummernkreise* object = FUNCTION(library, vexnumkrCreateObject)("VXNummernkreise", nullptr);
  Connection* connection =
      FUNCTION(library, vexnumkrOpenConnection)("Driver=QSQLITE;Database=:memory:", nullptr, 0);
  auto* release = FUNCTION(library, vexnumkrReleaseObject);
  auto* releaseConnection = FUNCTION(library, vexnumkrReleaseConnection);
  ASSERT_NE(object, nullptr);
  ASSERT_NE(connection, nullptr);
  library.reset();
  std::int32_t affected = 0;
  connection->Execute("CREATE TABLE tblUser (strUserName_PK VARCHAR(50))", affected);
  EXPECT_TRUE(object->Init({connection, releaseConnection}, 2, "Becker"));
  release(object);
}

}  // namespace
}  // namespace vexnumkr::test

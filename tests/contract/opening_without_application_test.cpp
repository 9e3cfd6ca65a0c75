// This program has no QCoreApplication.
#include <gtest/gtest.h>

#include <vexnumkr/adapters.h>

#include "contract/database_language.h"

namespace vexnumkr {

TEST(OpeningWithoutApplication, SaysWhatIsMissing) {
  const Error error =
      test::errorOf([] { openQtSqlConnection("Driver=QSQLITE;Database=:memory:"); });
  EXPECT_EQ(error.number(), 3709);
  EXPECT_EQ(error.description(), "Für eine Datenbankverbindung fehlt das Qt-Anwendungsobjekt.");
}

}  // namespace vexnumkr

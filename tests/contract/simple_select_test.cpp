#include "adapters/qtsql/rows/simple_select.h"

#include <gtest/gtest.h>

#include "engines/engine_list.h"

namespace vexnumkr::qtsql {
namespace {

// The table and the text with "KEY" as a further column; empty for other selects.
std::string withKey(std::string_view text) {
  StatementGate gate;
  const auto select = parseSimpleSelect(gate.pass(text, engines::sqlite.rules("")));
  return select ? std::string(select->table) + ": " + select->withColumns("KEY") : std::string();
}

}  // namespace

TEST(SimpleSelect, TakesColumnsOfOneTable) {
  EXPECT_EQ(withKey("SELECT a FROM t"), "t: SELECT a, KEY FROM t");
  EXPECT_EQ(withKey("select a,b , t.c from t"), "t: select a,b , t.c, KEY from t");
  EXPECT_EQ(withKey("SELECT * FROM t;"), "t: SELECT *, KEY FROM t");
  EXPECT_EQ(withKey("SELECT t.* FROM t"), "t: SELECT t.*, KEY FROM t");
  EXPECT_EQ(withKey("SELECT \"a b\", [c], `d` FROM \"t u\""),
            "\"t u\": SELECT \"a b\", [c], `d`, KEY FROM \"t u\"");
  EXPECT_EQ(withKey("SELECT a /*,*/ FROM main . t"), "main . t: SELECT a, KEY FROM main . t");
}

TEST(SimpleSelect, TakesConditionsOrderAndLimit) {
  EXPECT_EQ(withKey("SELECT a FROM t WHERE b='FROM x' AND c IN (SELECT d FROM e GROUP BY f) "
                    "ORDER BY g LIMIT 3"),
            "t: SELECT a, KEY FROM t WHERE b='FROM x' AND c IN (SELECT d FROM e GROUP BY f) "
            "ORDER BY g LIMIT 3");
  EXPECT_EQ(withKey("SELECT a FROM t ORDER BY b"), "t: SELECT a, KEY FROM t ORDER BY b");
  EXPECT_EQ(withKey("SELECT a FROM t LIMIT 1"), "t: SELECT a, KEY FROM t LIMIT 1");
  EXPECT_EQ(withKey("SELECT a FROM t AS u WHERE b=1"), "t: SELECT a, KEY FROM t AS u WHERE b=1");
  EXPECT_EQ(withKey("SELECT a FROM t u"), "t: SELECT a, KEY FROM t u");
}

TEST(SimpleSelect, TakesNothingElse) {
  for (const char* const text : {"SELECT DISTINCT a FROM t",
                                 "SELECT a AS b FROM t",
                                 "SELECT a b FROM t",
                                 "SELECT COUNT(*) FROM t",
                                 "SELECT a+1 FROM t",
                                 "SELECT 1 FROM t",
                                 "SELECT 'a' FROM t",
                                 "SELECT (a) FROM t",
                                 "SELECT a FROM t, u",
                                 "SELECT a FROM t JOIN u",
                                 "SELECT a FROM t NATURAL JOIN u",
                                 "SELECT a FROM t LEFT JOIN u ON b",
                                 "SELECT a FROM (SELECT a FROM t)",
                                 "SELECT a FROM t GROUP BY a",
                                 "SELECT a FROM t WHERE b GROUP BY a",
                                 "SELECT a FROM t UNION SELECT a FROM t",
                                 "SELECT a FROM t WHERE b UNION ALL SELECT a FROM t",
                                 "SELECT a FROM t WHERE b EXCEPT c",
                                 "SELECT a FROM f(1)",
                                 "SELECT a FROM t INDEXED BY i",
                                 "SELECT a FROM t AS",
                                 "SELECT a FROM t AS 'u'",
                                 "SELECT a",
                                 "SELECT a FROM",
                                 "SELECT",
                                 "SELECT FROM t",
                                 "SELECT a, FROM t",
                                 "SELECT a FROM 't'",
                                 "WITH t AS (SELECT 1) SELECT a FROM t",
                                 "VALUES (1)",
                                 "DELETE FROM t",
                                 "SELECT a.b.c FROM t"})
    EXPECT_EQ(withKey(text), "") << text;
}

}  // namespace vexnumkr::qtsql

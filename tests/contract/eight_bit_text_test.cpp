#include "adapters/qtsql/rows/eight_bit_text.h"

#include <gtest/gtest.h>

namespace vexnumkr::qtsql {
namespace {

std::string ascii(std::string_view text) {
  StatementGate gate;
  return inAscii(gate.pass(text));
}

}  // namespace

TEST(EightBitText, LeavesAsciiAlone) {
  EXPECT_EQ(ascii(" SELECT 'O''Brien', \"a\" -- ä"), "SELECT 'O''Brien', \"a\"");
}

TEST(EightBitText, WritesOtherTextsAsTheirBytes) {
  EXPECT_EQ(ascii("SELECT 'ä', 'b', '€'"),
            "SELECT CAST(x'C3A4' AS TEXT), 'b', CAST(x'E282AC' AS TEXT)");
  EXPECT_EQ(ascii("SELECT 'ä''b'''"), "SELECT CAST(x'C3A4276227' AS TEXT)");
}

TEST(EightBitText, LeavesNamesAndOpenLiteralsToTheEngine) {
  EXPECT_EQ(ascii("SELECT \"ä\""), "SELECT \"ä\"");
  EXPECT_EQ(ascii("SELECT 'ä"), "SELECT 'ä");
}

}  // namespace vexnumkr::qtsql

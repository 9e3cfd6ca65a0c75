#include "adapters/qtsql/rows/field_value.h"

#include <gtest/gtest.h>

#include <limits>

#include "contract/database_language.h"

namespace vexnumkr::qtsql {
namespace {

std::string shown(const QVariant& field) { return test::shown(toValue(field)); }

}  // namespace

TEST(FieldValue, UnsignedAndSmallIntegersAreNumbersToo) {
  EXPECT_EQ(toValue(QVariant::fromValue<qulonglong>(7)), Value(7));
  EXPECT_EQ(toValue(QVariant::fromValue<qulonglong>(2147483648ULL)), Value("2147483648"));
  EXPECT_EQ(toValue(QVariant::fromValue<qulonglong>(18446744073709551615ULL)),
            Value("18446744073709551615"));
  EXPECT_EQ(toValue(QVariant::fromValue<char>(5)), Value(5));
  EXPECT_EQ(toValue(QVariant::fromValue<signed char>(-1)), Value(-1));
  EXPECT_EQ(toValue(QVariant::fromValue<unsigned char>(200)), Value(200));
}

TEST(FieldValue, NullIsToldFromEmptyTexts) {
  EXPECT_EQ(shown(QVariant()), "Null");
  EXPECT_EQ(shown(QVariant(QMetaType::fromType<QString>())), "Null");
  EXPECT_EQ(shown(QVariant(QMetaType::fromType<int>())), "Null");
  EXPECT_EQ(shown(QStringLiteral("")), "''");
  EXPECT_EQ(shown(QByteArray("")), "''");
}

TEST(FieldValue, IntegersAreNumbersWhere32BitsHoldThem) {
  EXPECT_EQ(shown(0), "0");
  EXPECT_EQ(shown(2147483647LL), "2147483647");
  EXPECT_EQ(shown(-2147483648LL), "-2147483648");
  EXPECT_EQ(shown(2147483648LL), "'2147483648'");
  EXPECT_EQ(shown(-2147483649LL), "'-2147483649'");
  EXPECT_EQ(shown(4294967295U), "'4294967295'");
  EXPECT_EQ(shown(std::numeric_limits<qlonglong>::min()), "'-9223372036854775808'");
  EXPECT_EQ(shown(std::numeric_limits<qulonglong>::max()), "'18446744073709551615'");
  EXPECT_EQ(shown(QVariant::fromValue<short>(-3)), "-3");
}

TEST(FieldValue, BooleansAreNumbers) {
  EXPECT_EQ(shown(true), "-1");
  EXPECT_EQ(shown(false), "0");
}

TEST(FieldValue, WholeRealsAreNumbersOthersTextsWithAComma) {
  EXPECT_EQ(shown(3.0), "3");
  EXPECT_EQ(shown(-0.0), "0");
  EXPECT_EQ(shown(2147483647.0), "2147483647");
  EXPECT_EQ(shown(2147483648.0), "'2147483648'");
  EXPECT_EQ(shown(12.5), "'12,5'");
  EXPECT_EQ(shown(-0.25), "'-0,25'");
  EXPECT_EQ(shown(0.1), "'0,1'");
  EXPECT_EQ(shown(1.5F), "'1,5'");
  EXPECT_EQ(shown(0.000001), "'0,000001'");
  EXPECT_EQ(shown(1e22), "'10000000000000000000000'");
}

TEST(FieldValue, RealsReadAsNumbers) {
  EXPECT_EQ(toValue(12.5).toLong(), 12);
  EXPECT_EQ(toValue(-13.5).toLong(), -14);
  for (const double extreme :
       {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()})
    EXPECT_EQ(test::errorOf([&] { toValue(extreme).toLong(); }).number(), error_number::overflow);
  EXPECT_EQ(toValue(std::numeric_limits<double>::denorm_min()).toLong(), 0);
  EXPECT_EQ(toValue(-2.2250738585072011e-308).toLong(), 0);
}

TEST(FieldValue, TextsAreKeptCharacterByCharacter) {
  using namespace std::string_literals;
  for (const std::string& text :
       {"Größe  "s, "a\0b"s, "\0"s, "\xEF\xBB\xBF mark"s, "\xF0\x9F\xA7\xBE"s, " "s}) {
    const QVariant field = toField(text);
    EXPECT_EQ(field.typeId(), QMetaType::QString);
    EXPECT_EQ(toValue(field), Value(text));
  }
  EXPECT_EQ(shown(QByteArray("Gr\xC3\xB6\xC3\x9F"
                             "e\0x",
                             9)),
            "'Größe\0x'"s);
}

TEST(FieldValue, ATextThatIsNotUtf8IsRefused) {
  for (const char* const text : {"\xFF", "a\xC3", "\xC3(", "\xED\xA0\x80"})
    EXPECT_EQ(test::errorOf([&] { toField(text); }).number(), 3001);
}

TEST(FieldValue, ValuesAreStoredAsTheyAre) {
  EXPECT_EQ(toField(12), QVariant(12));
  EXPECT_EQ(toField(true), QVariant(-1));
  EXPECT_EQ(toField(false), QVariant(0));
  EXPECT_TRUE(toField(Null()).isNull());
  EXPECT_TRUE(toField(Empty()).isNull());
  EXPECT_FALSE(toField("").isNull());
}

}  // namespace vexnumkr::qtsql

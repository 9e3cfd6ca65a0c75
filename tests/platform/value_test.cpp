#include <gtest/gtest.h>

#include <vexnumkr/error.h>
#include <vexnumkr/value.h>

#include "support/error_of.h"

namespace vexnumkr {
namespace {

using test::errorOf;

TEST(ValueTest, EqualsOnlyTheSameKindWithTheSameContent) {
  EXPECT_EQ(Value(), Value(Empty{}));
  EXPECT_EQ(Value("1"), Value(std::string("1")));
  EXPECT_FALSE(Value("1") == Value(1));
  EXPECT_FALSE(Value("") == Value());
  EXPECT_FALSE(Value(Null{}) == Value());
  EXPECT_FALSE(Value(0) == Value(false));
}

TEST(ValueTest, ConvertsToLong) {
  EXPECT_EQ(Value().toLong(), 0);
  EXPECT_EQ(Value(true).toLong(), -1);
  EXPECT_EQ(Value(false).toLong(), 0);
  EXPECT_EQ(Value(-7).toLong(), -7);
  EXPECT_EQ(Value(" 12 ").toLong(), 12);
  EXPECT_EQ(errorOf([] { Value(Null{}).toLong(); }), error_number::invalidUseOfNull);
}

TEST(ValueTest, ConvertsToBoolean) {
  EXPECT_FALSE(Value().toBoolean());
  EXPECT_TRUE(Value(true).toBoolean());
  EXPECT_TRUE(Value(-1).toBoolean());
  EXPECT_TRUE(Value(2).toBoolean());
  EXPECT_FALSE(Value(0).toBoolean());
  EXPECT_TRUE(Value("WAHR").toBoolean());
  EXPECT_TRUE(Value("true").toBoolean());
  EXPECT_FALSE(Value("Falsch").toBoolean());
  EXPECT_FALSE(Value("FALSE").toBoolean());
  EXPECT_TRUE(Value("0,5").toBoolean());
  EXPECT_FALSE(Value("0,0").toBoolean());
  EXPECT_TRUE(Value("99999999999").toBoolean());
  EXPECT_EQ(errorOf([] { Value("ja").toBoolean(); }), error_number::typeMismatch);
  EXPECT_EQ(errorOf([] { Value("").toBoolean(); }), error_number::typeMismatch);
  EXPECT_EQ(errorOf([] { Value(Null{}).toBoolean(); }), error_number::invalidUseOfNull);
}

TEST(ValueTest, ConvertsToText) {
  EXPECT_EQ(Value().toText(), "");
  EXPECT_EQ(Value(true).toText(), "Wahr");
  EXPECT_EQ(Value(false).toText(), "Falsch");
  EXPECT_EQ(Value(-2147483647 - 1).toText(), "-2147483648");
  EXPECT_EQ(Value("Größe").toText(), "Größe");
  EXPECT_EQ(errorOf([] { Value(Null{}).toText(); }), error_number::invalidUseOfNull);
}

TEST(TextToLongTest, ReadsTheNumbersOfTheCountry) {
  EXPECT_EQ(textToLong("+5"), 5);
  EXPECT_EQ(textToLong("-5"), -5);
  EXPECT_EQ(textToLong("1.000"), 1000);
  EXPECT_EQ(textToLong("12.345.678"), 12345678);
  EXPECT_EQ(textToLong(",5"), 0);
  EXPECT_EQ(textToLong("1.000,9"), 1001);
  EXPECT_EQ(textToLong("000000000000000012"), 12);
}

TEST(TextToLongTest, RoundsHalfToEven) {
  EXPECT_EQ(textToLong("0,5"), 0);
  EXPECT_EQ(textToLong("1,5"), 2);
  EXPECT_EQ(textToLong("2,5"), 2);
  EXPECT_EQ(textToLong("2,50001"), 3);
  EXPECT_EQ(textToLong("-2,5"), -2);
  EXPECT_EQ(textToLong("-3,5"), -4);
  EXPECT_EQ(textToLong("2,4999"), 2);
}

TEST(TextToLongTest, EndsWithTheThirtyTwoBitRange) {
  EXPECT_EQ(textToLong("2147483647,4"), 2147483647);
  EXPECT_EQ(textToLong("-2147483648,5"), -2147483647 - 1);
  for (const char* text : {"2147483648", "2147483647,5", "-2147483649", "9999999999999999999999"})
    EXPECT_EQ(errorOf([text] { textToLong(text); }), error_number::overflow) << text;
}

TEST(TextToLongTest, RefusesEverythingElse) {
  for (const char* text : {"",       " ",        "+",     "-",      ",",      "-,",  "5,",   "12.5",
                           "1.0000", "1000.000", ".5",    "1..000", "1.000.", "1e3", "&H10", "5-",
                           "- 5",    "1,5,5",    "1 000", "0x10",   "ja",     "１２"}) {
    EXPECT_FALSE(isNumber(text)) << text;
    EXPECT_EQ(errorOf([text] { textToLong(text); }), error_number::typeMismatch) << text;
  }
}

TEST(TextTest, TrimsBlanksOnly) {
  EXPECT_EQ(trimBlanks("  a b  "), "a b");
  EXPECT_EQ(trimBlanks("   "), "");
  EXPECT_EQ(trimBlanks("\ta\n"), "\ta\n");
}

TEST(TextTest, CountsCharactersAndNotBytes) {
  EXPECT_EQ(characterAt("2024", 3), "4");
  EXPECT_EQ(characterAt("äöü", 1), "ö");
  EXPECT_EQ(characterAt("äöü", 3), "");
  EXPECT_EQ(characterAt("", 0), "");
}

TEST(ErrorTest, CarriesNumberSourceAndDescription) {
  const Error error(4711, "Quelle", "Beschreibung");
  EXPECT_EQ(error.number(), 4711);
  EXPECT_EQ(error.source(), "Quelle");
  EXPECT_EQ(error.description(), "Beschreibung");
  EXPECT_EQ(Error::overflow().description(), "Überlauf");
  EXPECT_EQ(Error::subscriptOutOfRange().description(), "Index außerhalb des gültigen Bereichs");
  EXPECT_EQ(Error::typeMismatch().description(), "Typen unverträglich");
  EXPECT_EQ(Error::objectNotSet().description(), "Objektvariable nicht festgelegt");
  EXPECT_EQ(Error::invalidUseOfNull().description(), "Unzulässige Verwendung von Null");
  EXPECT_EQ(Error::cannotCreateObject().description(),
            "Objekterstellung durch ActiveX-Komponente nicht möglich");
}

}  // namespace
}  // namespace vexnumkr

#include "adapters/automation/com/variant.h"

#include <gtest/gtest.h>

#include <vexnumkr/error.h>

#include "adapters/automation/com/bstr.h"
#include "support/error_of.h"

namespace vexnumkr::automation {
namespace {

using test::errorOf;

VARIANT ofType(VARTYPE type) {
  VARIANT variant;
  VariantInit(&variant);
  V_VT(&variant) = type;
  return variant;
}

VARIANT real(double number) {
  VARIANT variant = ofType(VT_R8);
  V_R8(&variant) = number;
  return variant;
}

VARIANT currency(LONGLONG tenThousandths) {
  VARIANT variant = ofType(VT_CY);
  V_CY(&variant).int64 = tenThousandths;
  return variant;
}

}  // namespace

TEST(Variant, NothingAndNullAreToldApart) {
  EXPECT_TRUE(toValue(ofType(VT_EMPTY)).isEmpty());
  EXPECT_TRUE(toValue(ofType(VT_NULL)).isNull());
  EXPECT_EQ(V_VT(&Variant(Value()).get()), VT_EMPTY);
  EXPECT_EQ(V_VT(&Variant(Value(Null())).get()), VT_NULL);
}

TEST(Variant, ABooleanIsMinusOneOrZero) {
  EXPECT_EQ(toValue(Variant(true).get()), Value(-1));
  EXPECT_EQ(toValue(Variant(false).get()), Value(0));
  EXPECT_TRUE(toBoolean(Variant(true).get()));
}

TEST(Variant, IntegersOfEverySizeAreNumbers) {
  VARIANT variant = ofType(VT_I2);
  V_I2(&variant) = -32768;
  EXPECT_EQ(toValue(variant), Value(-32768));
  variant = ofType(VT_UI1);
  V_UI1(&variant) = 255;
  EXPECT_EQ(toValue(variant), Value(255));
  variant = ofType(VT_I8);
  V_I8(&variant) = 2147483647;
  EXPECT_EQ(toValue(variant), Value(2147483647));
  V_I8(&variant) = 2147483648;
  EXPECT_EQ(toValue(variant), Value("2147483648"));
  EXPECT_EQ(errorOf([&] { toLong(variant); }), error_number::overflow);
}

TEST(Variant, WholeRealNumbersAreNumbers) {
  EXPECT_EQ(toValue(real(260000.0)), Value(260000));
  EXPECT_EQ(toValue(real(-2147483648.0)), Value(-2147483647 - 1));
}

TEST(Variant, OtherRealNumbersAreTextsThatRoundHalfToEven) {
  EXPECT_EQ(toValue(real(2.5)), Value("2,5"));
  EXPECT_EQ(toLong(real(2.5)), 2);
  EXPECT_EQ(toLong(real(3.5)), 4);
  EXPECT_EQ(errorOf([] { toLong(real(1e20)); }), error_number::overflow);
}

TEST(Variant, SmallRealNumbersKeepTheDigitsThatTheyHave) {
  VARIANT variant = ofType(VT_R4);
  V_R4(&variant) = 2.1F;
  EXPECT_EQ(toValue(variant), Value("2,1"));
  V_R4(&variant) = 7.0F;
  EXPECT_EQ(toValue(variant), Value(7));
}

TEST(Variant, ADateIsTheTextThatItsUserSees) {
  VARIANT variant = ofType(VT_DATE);
  V_DATE(&variant) = 46022;  // 31 December 2025
  const Value text = toValue(variant);
  ASSERT_TRUE(text.isText());
  EXPECT_NE(text.asText().find("2025"), std::string::npos) << text.asText();
  EXPECT_NE(text.asText().find("31"), std::string::npos) << text.asText();
}

TEST(Variant, ExactDecimalsKeepTheirDigits) {
  EXPECT_EQ(toValue(currency(2600000000)), Value(260000));
  EXPECT_EQ(toValue(currency(25000)), Value("2,5"));
  EXPECT_EQ(toValue(currency(-5000)), Value("-0,5"));
  EXPECT_EQ(errorOf([] { toLong(currency(21474836480000)); }), error_number::overflow);
}

TEST(Variant, TextsKeepEveryCharacter) {
  const std::string text = "Größe 5 € \xF0\x9F\xA7\xBE";
  EXPECT_EQ(toValue(Variant(text).get()), Value(text));
  EXPECT_EQ(toValue(Variant("").get()), Value(""));
  EXPECT_EQ(toUtf8(Bstr(std::wstring_view(L"a\0b", 3)).get()), std::string("a\0b", 3));
}

// Half a pair of surrogates, as a database layer may hand it over.
TEST(Variant, AStoredTextThatIsNotWellFormedIsRefusedAndNotReplaced) {
  const Variant whole("Größe \xF0\x9F\xA7\xBE");
  EXPECT_EQ(toStoredValue(whole.get()), toValue(whole.get()));
  for (const std::wstring_view text : {L"a\xD83E", L"\xDDFE", L"\xD83E a"}) {
    VARIANT variant = ofType(VT_BSTR);
    const Bstr broken(text);
    V_BSTR(&variant) = broken.get();
    EXPECT_EQ(errorOf([&] { toStoredValue(variant); }), error_number::unreadableText);
  }
  VARIANT none = ofType(VT_BSTR);
  V_BSTR(&none) = nullptr;
  EXPECT_EQ(toStoredValue(none), Value(""));
}

TEST(Variant, AMissingTextIsEmpty) {
  VARIANT variant = ofType(VT_BSTR);
  V_BSTR(&variant) = nullptr;
  EXPECT_EQ(toValue(variant), Value(""));
}

TEST(Variant, ReferencesStandForWhatTheyReferTo) {
  Variant number(7);
  EXPECT_EQ(toValue(Variant::reference(number.get()).get()), Value(7));
}

TEST(Variant, ObjectsAndArraysAreNoValues) {
  EXPECT_EQ(errorOf([] { toValue(ofType(VT_DISPATCH)); }), error_number::typeMismatch);
  EXPECT_EQ(errorOf([] { toValue(ofType(VT_ERROR)); }), error_number::typeMismatch);
}

TEST(Variant, AnObjectIsWanted) {
  EXPECT_EQ(toObject(ofType(VT_DISPATCH)), nullptr);
  EXPECT_EQ(errorOf([] { toObject(Variant(7).get()); }), 424);
}

}  // namespace vexnumkr::automation

// Callers that know the members by name only, and hand over their values in every way that there
// is.
#include <gtest/gtest.h>

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/variant.h"
#include "automation/hosts/session.h"

namespace vexnumkr::test {
namespace {

using automation::ComPtr;
using automation::LateBound;
using automation::Variant;

class LateBinding : public testing::Test {
 protected:
  DISPID idOf(std::wstring name) {
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(numbers_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    return id;
  }

  /// Calls Init with these arguments, from the last to the first, as automation passes them.
  HRESULT init(std::vector<VARIANT> reversed, VARIANT* result, std::vector<DISPID> named = {}) {
    DISPPARAMS parameters = {reversed.data(), named.data(), static_cast<UINT>(reversed.size()),
                             static_cast<UINT>(named.size())};
    return numbers_->Invoke(idOf(L"Init"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                            &parameters, result, nullptr, nullptr);
  }

  void expectTrue(const Variant& result) {
    ASSERT_EQ(V_VT(&result.get()), VT_BOOL);
    EXPECT_EQ(V_BOOL(&result.get()), VARIANT_TRUE);
  }

  const Apartment apartment_;
  LateBound connection_ = openConnection();
  const Variant application_{std::int32_t{2}};
  const Variant user_{"Anna"};
  const Variant date_{"20240315"};
  ComPtr<_VXNummernkreise> numbers_ = createNumbers();
};

TEST_F(LateBinding, FindsTheMembersInAnyCase) {
  EXPECT_EQ(idOf(L"Init"), 0x60030000);
  EXPECT_EQ(idOf(L"init"), 0x60030000);
  EXPECT_EQ(idOf(L"SHOWDIALOG"), 0x60030001);
  std::wstring unknown = L"Nix";
  LPOLESTR names = unknown.data();
  DISPID id = 0;
  EXPECT_EQ(numbers_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
}

TEST_F(LateBinding, FindsTheArguments) {
  std::wstring texts[] = {L"Init", L"Conn", L"LngApplication", L"strUser",
                          L"jmtVerarbeitungsdatum"};
  LPOLESTR names[] = {texts[0].data(), texts[1].data(), texts[2].data(), texts[3].data(),
                      texts[4].data()};
  DISPID ids[5] = {};
  ASSERT_EQ(numbers_->GetIDsOfNames(IID_NULL, names, 5, LOCALE_USER_DEFAULT, ids), S_OK);
  for (int i = 1; i < 5; ++i) EXPECT_EQ(ids[i], i - 1);
}

TEST_F(LateBinding, TakesTheConnectionAsAnObject) {
  const Variant connection(connection_.object());
  Variant result;
  ASSERT_EQ(
      init({date_.get(), user_.get(), application_.get(), connection.get()}, result.receive()),
      S_OK);
  expectTrue(result);
}

TEST_F(LateBinding, TakesTheConnectionFromAVariableOfAScript) {
  Variant variable(connection_.object());
  const Variant reference = Variant::reference(variable.get());
  Variant result;
  ASSERT_EQ(init({user_.get(), application_.get(), reference.get()}, result.receive()), S_OK);
  expectTrue(result);
  EXPECT_EQ(V_DISPATCH(&variable.get()), connection_.object());
}

TEST_F(LateBinding, TakesTheConnectionFromATypedVariable) {
  IDispatch* variable = connection_.object();
  VARIANT reference = {};
  V_VT(&reference) = VT_BYREF | VT_DISPATCH;
  V_DISPATCHREF(&reference) = &variable;
  Variant result;
  ASSERT_EQ(init({user_.get(), application_.get(), reference}, result.receive()), S_OK);
  expectTrue(result);
  EXPECT_EQ(variable, connection_.object());
}

TEST_F(LateBinding, TakesTheConnectionAsAnUnknownObject) {
  VARIANT unknown = {};
  V_VT(&unknown) = VT_UNKNOWN;
  V_UNKNOWN(&unknown) = connection_.object();
  Variant result;
  ASSERT_EQ(init({user_.get(), application_.get(), unknown}, result.receive()), S_OK);
  expectTrue(result);
}

TEST_F(LateBinding, ConvertsWhatAutomationConverts) {
  const Variant connection(connection_.object());
  const Variant text("2");
  LONG number = 2;
  VARIANT reference = {};
  V_VT(&reference) = VT_BYREF | VT_I4;
  V_I4REF(&reference) = &number;
  VARIANT shortNumber = {};
  V_VT(&shortNumber) = VT_I2;
  V_I2(&shortNumber) = 2;
  for (const VARIANT& application : {text.get(), reference, shortNumber}) {
    Variant result;
    ASSERT_EQ(init({user_.get(), application, connection.get()}, result.receive()), S_OK);
    expectTrue(result);
  }
}

TEST_F(LateBinding, MayLeaveOutTheDate) {
  const Variant connection(connection_.object());
  VARIANT missing = {};
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  Variant result;
  ASSERT_EQ(init({missing, user_.get(), application_.get(), connection.get()}, result.receive()),
            S_OK);
  expectTrue(result);
}

TEST_F(LateBinding, MayNameTheArguments) {
  const Variant connection(connection_.object());
  Variant result;
  ASSERT_EQ(init({connection.get(), user_.get(), application_.get()}, result.receive(), {0, 2, 1}),
            S_OK);
  expectTrue(result);
}

TEST_F(LateBinding, NeedsNoResult) {
  const Variant connection(connection_.object());
  EXPECT_EQ(init({user_.get(), application_.get(), connection.get()}, nullptr), S_OK);
}

TEST_F(LateBinding, RefusesCallsThatDoNotFit) {
  const Variant connection(connection_.object());
  const Variant word("viel");
  Variant result;
  EXPECT_EQ(init({user_.get(), word.get(), connection.get()}, result.receive()),
            DISP_E_TYPEMISMATCH);
  EXPECT_TRUE(FAILED(init({application_.get(), connection.get()}, result.receive())));
  EXPECT_EQ(init({date_.get(), date_.get(), user_.get(), application_.get(), connection.get()},
                 result.receive()),
            DISP_E_BADPARAMCOUNT);
  DISPPARAMS none = {};
  EXPECT_EQ(numbers_->Invoke(77, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                             nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(numbers_->Invoke(idOf(L"ShowDialog"), IID_NULL, LOCALE_USER_DEFAULT,
                             DISPATCH_PROPERTYPUT, &none, nullptr, nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBinding, DescribesItself) {
  UINT count = 0;
  ASSERT_EQ(numbers_->GetTypeInfoCount(&count), S_OK);
  ASSERT_EQ(count, 1U);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(numbers_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.GetAddressOf()), S_OK);
  automation::Bstr name;
  ASSERT_EQ(info->GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(automation::toUtf8(name.get()), "_VXNummernkreise");
}

}  // namespace
}  // namespace vexnumkr::test

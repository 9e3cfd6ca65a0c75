#include "adapters/automation/com/failure.h"

#include <gtest/gtest.h>

#include "adapters/automation/com/bstr.h"
#include "adapters/automation/com/late_bound.h"
#include "support/error_of.h"

namespace vexnumkr::automation {
namespace {

using test::errorOf;

constexpr auto statementFailed = static_cast<HRESULT>(0x80040E14);

EXCEPINFO raised(HRESULT code, const char* source, const char* description) {
  EXCEPINFO info = {};
  info.scode = code;
  info.bstrSource = Bstr(std::string_view(source)).release();
  info.bstrDescription = Bstr(std::string_view(description)).release();
  return info;
}

HRESULT CALLBACK fillIn(EXCEPINFO* info) {
  info->bstrDescription = Bstr(std::string_view("später")).release();
  return S_OK;
}

}  // namespace

TEST(Failure, AProvidersErrorKeepsItsCodeSourceAndText) {
  EXCEPINFO info = raised(statementFailed, "Provider", "Ungültige Anweisung");
  const Error error = failureOf(info);
  EXPECT_EQ(error.number(), -2147217900);
  EXPECT_EQ(error.source(), "Provider");
  EXPECT_EQ(error.description(), "Ungültige Anweisung");
}

TEST(Failure, AnObjectsOwnErrorHasItsShortNumber) {
  EXCEPINFO info = raised(static_cast<HRESULT>(0x800A0BCD), "ADODB", "Kein aktueller Datensatz");
  EXPECT_EQ(failureOf(info).number(), 3021);
}

TEST(Failure, AnErrorMayHaveANumberInsteadOfACode) {
  EXCEPINFO info = raised(S_OK, "Host", "Eigener Fehler");
  info.wCode = 1001;
  EXPECT_EQ(failureOf(info).number(), 1001);
}

TEST(Failure, AnErrorMayFillInItsTextLate) {
  EXCEPINFO info = {};
  info.scode = statementFailed;
  info.pfnDeferredFillIn = fillIn;
  EXPECT_EQ(failureOf(info).description(), "später");
}

TEST(Failure, CodesOfRunTimeErrorsAreThoseErrors) {
  EXPECT_EQ(failureOf(DISP_E_TYPEMISMATCH).number(), 13);
  EXPECT_EQ(failureOf(DISP_E_TYPEMISMATCH).description(), "Typen unverträglich");
  EXPECT_EQ(failureOf(DISP_E_OVERFLOW).number(), 6);
  EXPECT_EQ(failureOf(DISP_E_MEMBERNOTFOUND).number(), 438);
  EXPECT_EQ(failureOf(E_OUTOFMEMORY).number(), 7);
  EXPECT_EQ(failureOf(REGDB_E_CLASSNOTREG).number(), 429);
}

TEST(Failure, OtherCodesHaveAText) {
  EXPECT_EQ(failureOf(E_FAIL).number(), -2147467259);
  EXPECT_NE(failureOf(E_FAIL).description(), "");
  EXPECT_NE(failureOf(statementFailed).description(), "");
}

TEST(LateBound, AClassThatIsNotThereIsError429) {
  EXPECT_EQ(errorOf([] { LateBound::create("Gibt.EsNicht"); }), 429);
}

TEST(LateBound, WithoutAnObjectThereIsError91) {
  LateBound nothing;
  EXPECT_EQ(errorOf([&] { nothing.call("Open"); }), 91);
  EXPECT_EQ(errorOf([&] { nothing.put("EOF", Variant(1)); }), 91);
}

TEST(LateBound, AMemberThatAnObjectDoesNotHaveIsError438) {
  LateBound connection = LateBound::create("ADODB.Connection");
  EXPECT_EQ(errorOf([&] { connection.call("GibtEsNicht"); }), 438);
}

TEST(LateBound, MembersAreFoundWithoutRegardToCase) {
  LateBound connection = LateBound::create("ADODB.Connection");
  connection.put("COMMANDTIMEOUT", Variant(17));
  EXPECT_EQ(toLong(connection.call("commandtimeout").get()), 17);
}

}  // namespace vexnumkr::automation

#include "automation/standins/ado_errors.h"

namespace vexnumkr::standins {
namespace {

// SQLite's own codes, as its ODBC driver passes them on.
constexpr std::int32_t sqliteError = 1;
constexpr std::int32_t sqliteConstraint = 19;

constexpr HRESULT statementFailed = static_cast<HRESULT>(0x80040E14);
constexpr HRESULT tableMissing = static_cast<HRESULT>(0x80040E37);
constexpr HRESULT integrityViolated = static_cast<HRESULT>(0x80040E2F);

bool isAdoNumber(std::int32_t number) { return number >= 3000 && number < 4000; }

HRESULT providerCode(const Error& error) {
  if (error.number() < 0) return error.number();
  if (error.number() == sqliteConstraint) return integrityViolated;
  if (error.number() != sqliteError) return E_FAIL;
  return error.description().find("no such table") == std::string::npos ? statementFailed
                                                                        : tableMissing;
}

}  // namespace

RaisedCode raisedCode(const Error& error) {
  if (isAdoNumber(error.number()))
    return {MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, error.number()), "ADODB"};
  return {providerCode(error), "Microsoft OLE DB Provider for ODBC Drivers"};
}

}  // namespace vexnumkr::standins

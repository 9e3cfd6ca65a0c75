// Wine 10's ODBC for 32-bit programs reads and writes the lengths of values also where the caller
// has none to give or wants none, as Qt's driver does with numbers. The linker puts these in place
// of the functions (-Wl,--wrap).
#include "adapters/automation/com/com_headers.h"
//
#include <sql.h>
#include <sqlext.h>

namespace {

SQLLEN nothing = 0;

}  // namespace

extern "C" {

SQLRETURN SQL_API __real_SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                                    SQLPOINTER value, SQLLEN size, SQLLEN* length);

SQLRETURN SQL_API __real_SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number,
                                          SQLSMALLINT direction, SQLSMALLINT valueType,
                                          SQLSMALLINT parameterType, SQLULEN columnSize,
                                          SQLSMALLINT digits, SQLPOINTER value, SQLLEN size,
                                          SQLLEN* length);

SQLRETURN SQL_API __wrap_SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                                    SQLPOINTER value, SQLLEN size, SQLLEN* length) {
  SQLLEN unwanted = 0;
  return __real_SQLGetData(statement, column, type, value, size,
                           length != nullptr ? length : &unwanted);
}

SQLRETURN SQL_API __wrap_SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number,
                                          SQLSMALLINT direction, SQLSMALLINT valueType,
                                          SQLSMALLINT parameterType, SQLULEN columnSize,
                                          SQLSMALLINT digits, SQLPOINTER value, SQLLEN size,
                                          SQLLEN* length) {
  return __real_SQLBindParameter(statement, number, direction, valueType, parameterType, columnSize,
                                 digits, value, size, length != nullptr ? length : &nothing);
}
}

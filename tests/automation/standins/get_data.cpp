// Wine 10's ODBC for 32-bit programs writes the length of a value also where the caller wants none,
// as Qt's driver does. The linker puts this in place of the function (-Wl,--wrap).
#include "adapters/automation/com/com_headers.h"
//
#include <sql.h>
#include <sqlext.h>

extern "C" {

SQLRETURN SQL_API __real_SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                                    SQLPOINTER value, SQLLEN size, SQLLEN* length);

SQLRETURN SQL_API __wrap_SQLGetData(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                                    SQLPOINTER value, SQLLEN size, SQLLEN* length) {
  SQLLEN unwanted = 0;
  return __real_SQLGetData(statement, column, type, value, size,
                           length != nullptr ? length : &unwanted);
}
}

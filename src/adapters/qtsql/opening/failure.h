// The adapter's failures: its own, in German for the user's error box, and the engine's.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <vexnumkr/error.h>

class QSqlDatabase;
class QSqlError;
class QString;

namespace vexnumkr {
struct Engine;
}

namespace vexnumkr::qtsql {

/// The numbers of the adapter's own failures, besides those of error.h: what ADO users know.
namespace failure_number {
inline constexpr std::int32_t fileMoved = 1032;  // SQLite's own.
inline constexpr std::int32_t itemNotFound = 3265;
inline constexpr std::int32_t objectClosed = 3704;
inline constexpr std::int32_t objectOpen = 3705;
inline constexpr std::int32_t recordGone = -2147217864;
inline constexpr std::int32_t unspecified = -2147467259;
inline constexpr std::int32_t noTransaction = -2147168242;
inline constexpr std::int32_t transactionRuns = -2147168237;
}  // namespace failure_number

/// The source of the adapter's own failures.
inline constexpr const char* adapterName = "Qt SQL";

/// One of the adapter's own failures.
Error failure(std::int32_t number, const std::string& text);

/// A failure of the engine: its code and its message, and as its source the engine's title, so that
/// its numbers are told from others. Codes with letters (PostgreSQL's 42P01) have no number and are
/// `unspecified`; they stand behind the title, as does `code` where the driver has another one.
/// What the engine's entry advises to that code stands below the message.
/// Where the driver failed before the engine was asked, the driver's text and `unspecified`.
Error engineFailure(const QSqlError& error, const Engine& engine, const QString& code);
/// The same for a connection that does not open; `title` is the engine's or the driver's.
Error openingFailure(const QSqlError& error, std::string_view title);

/// `error` with what `database` has for passwords masked in its text, those in an ODBC connection
/// string included.
Error withoutPasswords(const Error& error, const QSqlDatabase& database);

Error connectionClosed();
Error connectionOpen();
Error recordsetClosed();
Error recordsetOpen();
Error transactionMissing();
Error transactionRuns();
Error unreadableText();

}  // namespace vexnumkr::qtsql

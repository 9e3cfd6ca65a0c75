// The adapter's failures: its own, in German for the user's error box, and the engine's.
#pragma once

#include <cstdint>
#include <string>

#include <vexnumkr/error.h>

class QSqlError;

namespace vexnumkr::qtsql {

/// The numbers of the adapter's own failures: those that ADO users know for them.
namespace failure_number {
inline constexpr std::int32_t invalidArgument = 3001;
inline constexpr std::int32_t notAvailable = 3251;
inline constexpr std::int32_t itemNotFound = 3265;
inline constexpr std::int32_t objectClosed = 3704;
inline constexpr std::int32_t objectOpen = 3705;
inline constexpr std::int32_t unknownDriver = 3706;
inline constexpr std::int32_t invalidConnection = 3709;
inline constexpr std::int32_t recordGone = -2147217864;
inline constexpr std::int32_t unspecified = -2147467259;
}  // namespace failure_number

/// One of the adapter's own failures.
Error failure(std::int32_t number, const std::string& text);

/// A failure of the engine: its code and its message. Where the driver failed before the engine was
/// asked, the driver's text and `unspecified`.
Error engineFailure(const QSqlError& error);

Error connectionClosed();
Error connectionOpen();
Error recordsetClosed();
Error recordsetOpen();

}  // namespace vexnumkr::qtsql

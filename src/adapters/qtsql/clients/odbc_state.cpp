#include "adapters/qtsql/clients/odbc_state.h"

#include <QLibrary>
#include <QSqlQuery>
#include <QSqlResult>
#include <QVariant>
#include <array>
#include <cstdint>

#ifdef _WIN32
#define VEXNUMKR_ODBC_CALL __stdcall
#else
#define VEXNUMKR_ODBC_CALL
#endif

namespace vexnumkr::qtsql {
namespace {

// SQLGetDiagRec, as ODBC declares it.
using GetDiagRec = std::int16_t(VEXNUMKR_ODBC_CALL*)(std::int16_t handleType, void* handle,
                                                     std::int16_t record, unsigned char* state,
                                                     std::int32_t* nativeError,
                                                     unsigned char* message,
                                                     std::int16_t messageSize,
                                                     std::int16_t* messageLength);

constexpr std::int16_t statementHandle = 3;
constexpr std::int16_t firstRecord = 1;

// Qt's driver has loaded the library already; nothing else here needs it.
GetDiagRec getDiagRec() {
#ifdef _WIN32
  QLibrary library(QStringLiteral("odbc32"));
#else
  QLibrary library(QStringLiteral("odbc"), 2);
#endif
  return reinterpret_cast<GetDiagRec>(library.resolve("SQLGetDiagRec"));
}

}  // namespace

QString odbcState(const QSqlQuery& failed) {
  const GetDiagRec read = getDiagRec();
  const QVariant handle = failed.result()->handle();
  if (read == nullptr || !handle.isValid()) return {};
  void* const statement = *static_cast<void* const*>(handle.constData());
  std::array<unsigned char, 6> state{};
  std::array<unsigned char, 512> message{};
  std::int32_t nativeError = 0;
  std::int16_t length = 0;
  const std::int16_t result =
      read(statementHandle, statement, firstRecord, state.data(), &nativeError, message.data(),
           static_cast<std::int16_t>(message.size()), &length);
  if (result != 0 && result != 1) return {};
  return QString::fromLatin1(reinterpret_cast<const char*>(state.data()));
}

}  // namespace vexnumkr::qtsql

// The client libraries' own objects behind Qt's.
#pragma once

#include <QVariant>

namespace vexnumkr::qtsql {

/// The pointer in a handle of Qt's (QSqlDriver::handle, QSqlResult::handle); null where it is none
/// of that type, which may go by two names.
inline void* pointerIn(const QVariant& handle, const char* type, const char* alias) {
  if (!handle.isValid()) return nullptr;
  if (qstrcmp(handle.typeName(), type) != 0 && qstrcmp(handle.typeName(), alias) != 0)
    return nullptr;
  return *static_cast<void* const*>(handle.constData());
}

}  // namespace vexnumkr::qtsql

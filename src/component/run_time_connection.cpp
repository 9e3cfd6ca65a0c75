#include <algorithm>
#include <cstring>
#include <string_view>

#include <vexnumkr/adapters.h>
#include <vexnumkr/error.h>

#include "component/process.h"

namespace {

/// `text` in the `size` bytes at `target`, cut between two characters where it is too long.
void copyTo(char* target, std::size_t size, std::string_view text) noexcept {
  if (target == nullptr || size == 0) return;
  std::size_t length = std::min(text.size(), size - 1);
  const auto continues = [&](std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  while (length > 0 && continues(length)) --length;
  std::memcpy(target, text.data(), length);
  target[length] = '\0';
}

}  // namespace

vexnumkr::Connection* vexnumkrOpenConnection(const char* connectionString, char* failure,
                                             std::size_t size) noexcept {
  copyTo(failure, size, "");
  try {
    if (connectionString == nullptr)
      throw vexnumkr::Error(vexnumkr::error_number::objectNotSet, "", "Es fehlt die Verbindung.");
    vexnumkr::stayLoaded();
    if (!vexnumkr::haveApplication())
      throw vexnumkr::Error(vexnumkr::error_number::cannotCreateObject, "",
                            "Es gibt keine Anzeige, oder dies ist nicht der Thread der Dialoge.");
    auto connection = vexnumkr::createQtSqlConnection();
    connection->ConnectionString(connectionString);
    connection->Open("", "", vexnumkr::ado::unspecified);
    return connection.release();
  } catch (const std::exception& error) {
    copyTo(failure, size, error.what());
    return nullptr;
  }
}

void vexnumkrReleaseConnection(vexnumkr::Connection* connection) noexcept { delete connection; }

// The servers of a connection string, and which of them is worked with.
#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/connection_string.h>

namespace vexnumkr::qtsql {

/// Shared by a connection and those that it makes, so that all of them are on the same server: what
/// one of them has stored, the others read.
class Servers {
 public:
  /// REQUIRES: at least one address.
  explicit Servers(std::vector<ServerAddress> addresses) : addresses_(std::move(addresses)) {}

  const std::vector<ServerAddress>& addresses() const { return addresses_; }
  bool areSeveral() const { return addresses_.size() > 1; }

  /// The one that was opened last; the first before that.
  std::size_t inUse() const { return inUse_; }
  void use(std::size_t server) { inUse_ = server; }

  /// All of them in the order in which they are to be tried: from the one in use on or, by who has
  /// lost just that one, from the one behind it.
  std::vector<std::size_t> inOrder(std::optional<std::size_t> lost) const;

  /// As messages name it: "db1:3307".
  std::string name(std::size_t server) const;

 private:
  std::vector<ServerAddress> addresses_;
  std::atomic<std::size_t> inUse_ = 0;  // Each connection may be on a thread of its own.
};

}  // namespace vexnumkr::qtsql

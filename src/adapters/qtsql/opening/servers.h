// The servers of a connection string, and which of them is worked with.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <vector>

#include <vexnumkr/connection_string.h>

#include "engines/engine.h"

namespace vexnumkr::qtsql {

/// Shared by a connection and those that it makes, so that all of them are on the same server: what
/// one of them has stored, the others read.
class Servers {
 public:
  /// REQUIRES: at least one address.
  explicit Servers(std::vector<ServerAddress> addresses)
      : addresses_(std::move(addresses)), engines_(addresses_.size()) {}

  const std::vector<ServerAddress>& addresses() const { return addresses_; }
  bool areSeveral() const { return addresses_.size() > 1; }

  /// The one that was opened last; the first before that.
  std::size_t inUse() const { return inUse_; }
  void use(std::size_t server) { inUse_ = server; }

  /// The engine that has been found on a server; null before that. Not to be asked for again saves
  /// each further connection a round trip.
  const Engine* engineAt(std::size_t server) const { return engines_[server]; }
  void engineAt(std::size_t server, const Engine& engine) { engines_[server] = &engine; }

  /// All of them in the order in which they are to be tried, from the one in use on: a connection
  /// may be lost while its server is well, and who moved on alone would be apart from all others.
  std::vector<std::size_t> inOrder() const;

  /// As messages name it: "db1:3307".
  std::string name(std::size_t server) const;

 private:
  std::vector<ServerAddress> addresses_;
  // Each connection may be on a thread of its own.
  std::vector<std::atomic<const Engine*>> engines_;
  std::atomic<std::size_t> inUse_ = 0;
};

}  // namespace vexnumkr::qtsql

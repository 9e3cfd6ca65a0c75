// What the component sends, recorded, for the bare driver to send it too.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/bare_driver.h"
#include "bench/session.h"

namespace vexnumkr::bench {

struct SentStatement {
  std::string text;
  bool fails = false;  ///< as the insert of a range that exists does
};

using SentStatements = std::vector<SentStatement>;

/// What `work` sends on a session of its own on that database, after `before`.
SentStatements sentBy(
    const std::string& connectionString, DatabaseAccess access,
    const std::function<void(Session&)>& work,
    const std::function<void(Session&)>& before = [](Session&) {});

/// Sends them, those that fail only where that does not end the transaction.
void send(BareDriver& driver, const SentStatements& statements, bool withFailures);

}  // namespace vexnumkr::bench

// What has failed, and what of it the user has been told.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <utility>

#include "platform/reporter.h"

namespace vexnumkr {

/// Passes failures on to whoever shows them, each once within one action of the user: a table that
/// is not there fails the same procedure hundreds of times. Remembers whether a failure has left
/// the range table short of what the database holds: such a table must never be written.
class FailureLog final : public Reporter {
 public:
  /// `shown` is borrowed.
  explicit FailureLog(Reporter& shown) : shown_(shown) {}

  /// A dialog opens: its table is to be read anew.
  void forget() { tableIsPartial_ = false; }
  /// Whether, since then, a procedure has failed that brings rows into the table or takes them out.
  bool tableIsPartial() const { return tableIsPartial_; }

  void failed(const Procedure& procedure, const Error& failure) noexcept override;

 private:
  friend class UserAction;
  using Told = std::set<std::pair<std::string, std::int32_t>>;

  Reporter& shown_;
  bool tableIsPartial_ = false;
  int actions_ = 0;
  Told told_;
};

/// One action of the user: a click, a key, a choice, opening a dialog. What is done in the course
/// of it belongs to it. Outside of any action every failure is told.
class UserAction {
 public:
  explicit UserAction(FailureLog& log);
  ~UserAction();
  UserAction(const UserAction&) = delete;
  UserAction& operator=(const UserAction&) = delete;

 private:
  FailureLog& log_;
};

}  // namespace vexnumkr

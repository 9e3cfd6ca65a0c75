// The component without windows, at work on a company.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "hosting/session.h"

namespace vexnumkr::bench {

/// A session as Init and the dialog's start leave it, for application 1 and every user of tblUser,
/// the range table still empty. Questions are answered with Yes; a box that reports a failure is an
/// exception here, since what fails must not be measured.
class Session {
 public:
  Session(std::shared_ptr<Connection> connection, DatabaseAccess access);
  Session(const std::string& connectionString, DatabaseAccess access);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  vexnumkr::Session& session();
  XArray& table() { return session().XArray(); }

  /// Reads what the dialog reads ahead of the ranges: users, booking circles, and whether there are
  /// special ranges.
  void readLists();
  /// Replaces the range table by an empty one and fills it as the dialog does when it loads.
  void load();
  /// Begins the dialog's transaction.
  void begin();
  /// Raises the current value of a range by one, or, every other time, lowers it.
  void changeOneValue();
  /// Stores what has changed as OK does. REQUIRES: begin.
  void saveChanges();
  /// Both, whatever has changed.
  void save();

  /// The messages shown since the last call.
  int takeMessages();

 private:
  struct Surroundings;
  std::unique_ptr<Surroundings> surroundings_;
};

}  // namespace vexnumkr::bench

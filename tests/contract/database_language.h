// A small language for tests that work on a database.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>
#include <vexnumkr/error.h>

namespace vexnumkr::test {

using Fields = std::initializer_list<const char*>;

/// A value as tests write it: 12, 'text', Null, Empty, True.
std::string shown(const Value& value);

/// Runs one statement and returns the records affected.
std::int32_t run(Connection& connection, const std::string& text);

/// The rows that `select` finds, each as the values of `fields` with bars between them.
std::vector<std::string> rows(Connection& connection, const std::string& select, Fields fields);

/// The rows from the current one on.
std::vector<std::string> rest(Recordset& recordset, Fields fields);

/// The one value that `select` finds, its field named `X`.
Value value(Connection& connection, const std::string& select);

/// The error that `action` raises; when it raises none, the test fails and the number is 0.
template <class Action>
Error errorOf(Action&& action) {
  try {
    action();
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "no error was raised";
  return Error(0, "", "");
}

/// errorOf of a statement.
Error errorOf(Connection& connection, const std::string& text);

}  // namespace vexnumkr::test

// Which failures are worth another try: those of locks, by the code of the engine that failed and
// of no other.
#include <gtest/gtest.h>

#include "engines/engines.h"
#include "numbers/transaction.h"

namespace vexnumkr::test {
namespace {

constexpr std::int32_t unspecified = -2147467259;

bool isLocked(std::int32_t number, const std::string& source) {
  return meansLocked(Error(number, source, "..."));
}

TEST(LockedFailures, AreKnownByNumber) {
  for (const std::int32_t number : {5, 6, 261, 517}) EXPECT_TRUE(isLocked(number, "SQLite"));
  for (const std::int32_t number : {1020, 1205, 1213}) EXPECT_TRUE(isLocked(number, "MariaDB"));
  EXPECT_TRUE(isLocked(40001, "PostgreSQL"));
}

TEST(LockedFailures, AreKnownByACodeWithLetters) {
  EXPECT_TRUE(isLocked(unspecified, "PostgreSQL 40P01"));
  EXPECT_TRUE(isLocked(unspecified, "PostgreSQL 55P03"));
  EXPECT_TRUE(isLocked(5, "SQLite HY000"));
}

TEST(LockedFailures, AreNoOtherEnginesNorOthersOfTheSameEngine) {
  EXPECT_FALSE(isLocked(5, "MariaDB"));
  EXPECT_FALSE(isLocked(1213, "SQLite 1213x"));
  EXPECT_FALSE(isLocked(1205, "PostgreSQL"));
  EXPECT_FALSE(isLocked(19, "SQLite"));
  EXPECT_FALSE(isLocked(unspecified, "SQLite"));
  EXPECT_FALSE(isLocked(unspecified, "PostgreSQL 42P01"));
}

TEST(LockedFailures, AreNoneOfTheRunTime) {
  EXPECT_FALSE(meansLocked(Error::overflow()));
  EXPECT_FALSE(isLocked(5, "vexnumkr"));
}

int attemptsWith(const Error& failure) {
  int attempts = 0;
  const auto failing = [&] {
    ++attempts;
    throw failure;
  };
  EXPECT_THROW(numbers::whileLocked(failing), Error);
  return attempts;
}

TEST(LockedFailures, AreTriedTenTimesAndOthersOnce) {
  EXPECT_EQ(attemptsWith(Error(unspecified, "PostgreSQL 40P01", "deadlock detected")), 10);
  EXPECT_EQ(attemptsWith(Error::overflow()), 1);
}

}  // namespace
}  // namespace vexnumkr::test

#include "hosting/failure_log.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vexnumkr {
namespace {

using Lines = std::vector<std::string>;

class Shown final : public Reporter {
 public:
  void failed(const Procedure& procedure, const Error& failure) noexcept override {
    lines.push_back(procedure.name + (" " + std::to_string(failure.number())));
  }
  Lines lines;
};

class FailureLogTest : public ::testing::Test {
 protected:
  void fail(const char* procedure, std::int32_t number = 91) {
    log_.failed({generalModule, procedure}, Error(number, "", ""));
  }

  Shown shown_;
  FailureLog log_{shown_};
};

TEST_F(FailureLogTest, TheSameFailureIsToldOncePerAction) {
  {
    const UserAction action(log_);
    for (int i = 0; i < 100; ++i) fail("AddDataGroup");
    fail("AddDataGroup", 13);
    fail("AktiviertDB");
    const UserAction inIt(log_);
    fail("AktiviertDB");
  }
  EXPECT_EQ(shown_.lines, (Lines{"AddDataGroup 91", "AddDataGroup 13", "AktiviertDB 91"}));
  const UserAction next(log_);
  fail("AktiviertDB");
  EXPECT_EQ(shown_.lines.size(), 4U) << "the next action tells it again";
}

TEST_F(FailureLogTest, OutsideOfAnActionEveryFailureIsTold) {
  fail("Init");
  fail("Init");
  EXPECT_EQ(shown_.lines.size(), 2U);
}

TEST_F(FailureLogTest, WhatFillsTheTableLeavesItPartial) {
  for (const char* procedure : {"LoadItems", "AktiviertDB", "AddDataGroup", "RefreshSGroups",
                                "AddDataBuchungskreis", "GetBuchungskreisData", "RefreshCombo",
                                "RefreshInXArray", "AddInXArray", "DeleteInXArray"}) {
    log_.forget();
    EXPECT_FALSE(log_.tableIsPartial());
    fail(procedure);
    EXPECT_TRUE(log_.tableIsPartial()) << procedure;
  }
}

TEST_F(FailureLogTest, WhatOnlyShowsOrFindsDoesNot) {
  for (const char* procedure : {"SyncDataWithControl", "FoundInXArray", "CheckActivity", "Save",
                                "LookupBuchungskreis", "CheckSonderkreise"})
    fail(procedure);
  EXPECT_FALSE(log_.tableIsPartial());
}

}  // namespace
}  // namespace vexnumkr

#include <gtest/gtest.h>

#include <QString>
#include <string>

#include <vexnumkr/error.h>

#include "adapters/qt/guarded.h"

namespace vexnumkr {
namespace {

class GuardedTest : public testing::Test {
 protected:
  GuardedTest() : before_(qInstallMessageHandler(&note)) { logged_.clear(); }
  ~GuardedTest() override { qInstallMessageHandler(before_); }

 protected:
  static inline std::string logged_;  // Qt's handler is a function and knows no test

 private:
  static void note(QtMsgType, const QMessageLogContext&, const QString& message) {
    logged_ += message.toStdString() + '\n';
  }

  QtMessageHandler before_;
};

TEST_F(GuardedTest, AHandlerThatReturnsIsNotMentioned) {
  EXPECT_TRUE(guarded("Click", [] {}));
  EXPECT_EQ(logged_, "");
}

TEST_F(GuardedTest, AFailureIsLoggedWithItsEvent) {
  EXPECT_FALSE(guarded("AfterEdit", [] { throw Error(5, "Quelle", "So geht es nicht."); }));
  EXPECT_EQ(logged_, "AfterEdit: So geht es nicht.\n");
}

TEST_F(GuardedTest, WhateverIsThrownEndsHere) {
  EXPECT_FALSE(guarded("KeyDown", [] { throw 42; }));
  EXPECT_EQ(logged_, "KeyDown: unknown failure\n");
}

}  // namespace
}  // namespace vexnumkr

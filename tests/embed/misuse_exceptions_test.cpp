// A host whose own parts raise exceptions of any kind: the step that has called them fails, and
// what is stored is all that was to be saved or nothing of it.
#include <new>
#include <stdexcept>

#include "embed/misuse/misuse_session.h"

namespace vexnumkr::test {
namespace {

struct Raised {
  std::function<void()> raise;
  std::string box;
};

// What a host raises besides the one type of its interfaces.
const std::vector<Raised>& kinds() {
  static const std::vector<Raised> all = {
      {[] { throw std::runtime_error("kaputt"); }, "Fehler 51: "},
      {[] { throw std::bad_alloc(); }, "Fehler 7: "},
      {[] { throw 42; }, "Fehler 51: "},
      {[] { throw Error(-7, "", std::string("\xff\0", 2)); }, "Fehler -7: "}};
  return all;
}

class MisuseExceptionsTest : public MisuseSession {
 protected:
  MisuseExceptionsTest() {
    user.presses = {"cmdBuchungskreise", "cmdSonderkreise", "cmdOptionen", "cmdAuto", "cmdOK"};
  }

  /// Opens the dialog on a new company, in which the user presses and then closes.
  void work(std::int32_t application) {
    renewAll();
    user.takeBoxes();
    if (init(application)) component->ShowDialog();
    EXPECT_TRUE(isFree());
  }

  /// What is stored when nobody raises anything.
  std::vector<Row> savedBy(std::int32_t application) {
    work(application);
    EXPECT_FALSE(isUnchanged());
    EXPECT_EQ(user.takeBoxes().size(), application == 2 ? 1U : 0U) << "of numbering";
    return stored();
  }

  /// In a round for each kind and member of the host's, the member raises from its n-th call on.
  void forEachRaised(const std::vector<const char*>& members, std::int32_t application,
                     const std::function<void(const Raised&)>& expect, int n = 1) {
    for (const Raised& kind : kinds())
      for (const char* member : members) {
        SCOPED_TRACE(member + (" " + kind.box));
        int calls = 0;
        host.before = [&](const std::string& entered) {
          if (entered == member && ++calls >= n) kind.raise();
        };
        work(application);
        host.before = nullptr;
        EXPECT_GE(calls, n);
        expect(kind);
      }
  }
};

TEST_F(MisuseExceptionsTest, OfAPartEndTheStepThatNeedsItInABox) {
  const auto saved = savedBy(2);
  forEachRaised({"CreateObject", "Texts", "Picture", "Connection", "MultiSelect", "Circles.Show"},
                2, [&](const Raised& kind) {
                  EXPECT_TRUE(hasBox(user.takeBoxes(), kind.box));
                  EXPECT_EQ(stored(), saved) << "the rest goes on";
                });
}

TEST_F(MisuseExceptionsTest, OfTheSettingsStoreAreNotTold) {
  const auto saved = savedBy(2);
  const auto expectSaved = [&](const Raised&) {
    EXPECT_EQ(user.takeBoxes().size(), 1U) << "of numbering";
    EXPECT_EQ(stored(), saved);
  };
  forEachRaised({"Settings.Init", "GetSetting", "SaveSetting"}, 2, expectSaved);
  // The first object is the administration of the circles.
  forEachRaised({"CreateObject"}, 2, expectSaved, 2);
}

TEST_F(MisuseExceptionsTest, OfTheMessagesLeaveAFailureToAStandardBox) {
  for (const Raised& kind : kinds())
    for (const char* member : {"Messages", "ErrorNumber", "Prepare", "Texts", "Text", "Show"}) {
      SCOPED_TRACE(member + (" " + kind.box));
      host.before = [&](const std::string& entered) {
        if (entered == member) kind.raise();
      };
      EXPECT_FALSE(component->Init(nullptr, 1, "Becker"));
      host.before = nullptr;
      const auto boxes = user.takeBoxes();
      EXPECT_EQ(boxes.size(), 1U);
      EXPECT_TRUE(hasBox(boxes, "Fehler 91: ")) << "the failure that was to be shown";
    }
}

TEST_F(MisuseExceptionsTest, OfTheMessagesAnswerNoQuestion) {
  savedBy(1);
  // The first question is that of numbering.
  forEachRaised(
      {"Messages", "Show"}, 1, [&](const Raised&) { EXPECT_TRUE(isUnchanged()); }, 2);
}

TEST_F(MisuseExceptionsTest, OfTheDatabaseLayerEndInABox) {
  for (const char* member :
       {"createRecordset", "Recordset.Open", "MoveNext", "ConnectionString", "createCommand",
        "IsolationLevel", "createConnection", "Open", "Command.Execute", "Execute",
        "RequireTransactions", "BeginTrans", "LockTable", "CommitTrans", "Update"}) {
    SCOPED_TRACE(member);
    hooks.before = [member](const std::string& entered) {
      if (entered == member) throw 42;
    };
    user.presses = {"cmdAuto", "cmdOK"};
    if (std::string(member) == "Update") user.presses = {"cmdSonderkreise"};
    renewAll();
    if (init()) component->ShowDialog();
    EXPECT_TRUE(hasBox(user.takeBoxes(), "Fehler 51: "));
    EXPECT_TRUE(isUnchanged());
    hooks.before = nullptr;
    EXPECT_TRUE(isFree());
  }
}

// Every call that reaches the host's database layer, from Init to the end of a save, fails once.
TEST_F(MisuseExceptionsTest, OfOneCallOfTheDatabaseLayerStoreNothingByHalves) {
  user.presses = {"cmdAuto", "cmdOK"};
  const auto saved = savedBy(2);
  int failed = 0;
  for (int left = 0; left <= 0; ++failed) {
    SCOPED_TRACE("call " + std::to_string(failed + 1));
    const Raised& kind = kinds()[static_cast<std::size_t>(failed) % kinds().size()];
    left = failed + 1;
    hooks.before = [&, sampled = SampledCalls()](const std::string& entered) mutable {
      if (sampled.takes(entered) && --left == 0) kind.raise();
    };
    work(2);
    hooks.before = nullptr;
    const bool isTold = hasBox(user.takeBoxes(), kind.box);
    EXPECT_TRUE(stored() == saved || (isUnchanged() && isTold));
    if (HasFailure()) break;
  }
  EXPECT_GT(failed, 90);
}

// Nobody knows then whether it is stored.
TEST_F(MisuseExceptionsTest, AfterTheCommitStoreAllOfIt) {
  const auto saved = savedBy(2);
  for (const Raised& kind : kinds()) {
    hooks.after = [&](const std::string& left) {
      if (left == "CommitTrans") kind.raise();
    };
    work(2);
    EXPECT_TRUE(hasBox(user.takeBoxes(), kind.box));
    EXPECT_EQ(stored(), saved);
  }
}

}  // namespace
}  // namespace vexnumkr::test

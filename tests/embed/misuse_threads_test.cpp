// A host that uses the component from other threads: nothing is made, done or shown there.
#include <thread>

#include <vexnumkr/message_box.h>
#include <vexnumkr/numbers.h>

#include "embed/misuse/misuse_session.h"
#include "support/error_of.h"

namespace vexnumkr::test {
namespace {

class MisuseThreadsTest : public MisuseSession {
 protected:
  template <class Work>
  static void onAnotherThread(Work&& work) {
    std::thread(std::forward<Work>(work)).join();
  }
};

TEST_F(MisuseThreadsTest, TheFactoriesRefuse) {
  onAnotherThread([&] {
    EXPECT_EQ(errorOf([&] { createVXNummernkreise(host); }), error_number::cannotCreateObject);
    EXPECT_EQ(vexnumkrCreateObject("VXNummernkreise", &host), nullptr);
    EXPECT_EQ(errorOf([] { showMessageBox("Text", 0, "Titel"); }),
              error_number::cannotCreateObject);
    char text[200] = {};
    EXPECT_EQ(vexnumkrOpenConnection("Driver=QSQLITE;Database=:memory:", text, sizeof text),
              nullptr);
    EXPECT_STREQ(text, "Es gibt keine Anzeige, oder dies ist nicht der Thread der Dialoge.");
  });
  EXPECT_EQ(user.windows(), 0);
}

TEST_F(MisuseThreadsTest, TheComponentDoesNothing) {
  onAnotherThread([&] { EXPECT_FALSE(init()); });
  ASSERT_TRUE(init());
  onAnotherThread([&] { component->ShowDialog(); });
  EXPECT_EQ(user.windows(), 0);
  EXPECT_TRUE(isFree());
}

TEST_F(MisuseThreadsTest, AConnectionServesTheThreadThatHasOpenedIt) {
  std::int32_t affected = 0;
  auto command = real->createCommand();
  command->ActiveConnection(*real);
  command->CommandText("SELECT 1");
  auto rows = real->createRecordset();
  onAnotherThread([&] {
    const auto refused = [](auto&& call) { EXPECT_EQ(errorOf(call), error_number::invalidCall); };
    refused([&] { real->Execute("SELECT 1", affected); });
    refused([&] { command->Execute(affected); });
    refused([&] { rows->Open("SELECT 1", *real, 0, 1, -1); });
    refused([&] { real->BeginTrans(); });
    refused([&] { real->Close(); });
    refused([&] { numbers::draw(*real, {.application = 2, .user = "Becker", .key = "RE"}); });
  });
  EXPECT_NO_THROW(real->Execute("SELECT 1", affected));
  EXPECT_TRUE(isUnchanged());
}

TEST_F(MisuseThreadsTest, AConnectionOfAnotherThreadIsToldInABox) {
  std::shared_ptr<Connection> foreign;
  onAnotherThread([&] { foreign = database->connect(); });
  EXPECT_FALSE(component->Init(foreign, 2, "Becker"));
  EXPECT_TRUE(hasBox(user.takeBoxes(), "Fehler 5: "));
}

TEST_F(MisuseThreadsTest, EveryThreadDrawsOnAConnectionOfItsOwn) {
  constexpr int perThread = 20;
  const auto draw = [&] {
    const auto own = database->connect();
    for (int i = 0; i < perThread; ++i)
      numbers::draw(*own, {.application = 2, .user = "Becker", .key = "RE"});
  };
  const auto next = [&] {
    return numbers::draw(*real, {.application = 2, .user = "Becker", .key = "RE"}).first;
  };
  const auto first = next();
  std::thread one(draw);
  std::thread two(draw);
  one.join();
  two.join();
  EXPECT_EQ(next(), first + 2 * perThread + 1);
}

}  // namespace
}  // namespace vexnumkr::test

// A host that releases the component while it is at work: what is open closes, nothing is stored by
// halves, no transaction stays open, and the host is asked for nothing any more.
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <thread>

#include "embed/misuse/misuse_session.h"

namespace vexnumkr::test {
namespace {

class MisuseReleaseTest : public MisuseSession {
 protected:
  /// Init and ShowDialog of a component that may go in the middle of either.
  void run(std::int32_t application) {
    VXNummernkreise* const released = component.get();
    if (init(application) && component) released->ShowDialog();
  }

  /// Releases the component when `member` comes for the n-th time, counted from 1; from then on the
  /// host must not be called.
  std::function<void(const std::string&)> releasing(const std::string& wanted, int n = 1) {
    return [this, wanted, left = n](const std::string& member) mutable {
      if (!component && member != "~Circles") calls.push_back(member);
      if (member == wanted && --left == 0) component.reset();
    };
  }

  void expectClosed() {
    EXPECT_FALSE(component);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(isFree());
    EXPECT_FALSE(tellsOfWaits()) << "the component is gone";
    EXPECT_EQ(calls, std::vector<std::string>{}) << "of the host, after the component was released";
  }

  // Nobody else reads or writes until `other` closes.
  static void lockOut(Connection& other) {
    std::int32_t affected = 0;
    other.Execute("PRAGMA locking_mode = EXCLUSIVE", affected);
    other.Execute("UPDATE Nummernkreise SET AktuellerWert = AktuellerWert", affected);
  }

  // Nobody else writes from the dialog's opening until `other` ends its transaction.
  void writeWhenUp(Connection& other) {
    user.whenUp = [&other](const std::string& name) {
      if (name != "frmNummernkreise") return;
      other.BeginTrans();
      std::int32_t affected = 0;
      other.Execute("UPDATE Nummernkreise SET AktuellerWert = 0", affected);
    };
  }

  // Runs until the component was released in a wait that lasts until `other` is closed.
  void releaseInAWait(Connection& other) {
    int waits = 0;
    hooks.before = [&](const std::string& member) {
      if (member != "LockWait.Lasts") return;
      component.reset();
      if (++waits == 3) other.Close();
    };
    run(2);
    EXPECT_EQ(waits, 3);
    expectClosed();
    EXPECT_TRUE(isUnchanged());
  }

  std::vector<std::string> calls;
};

TEST_F(MisuseReleaseTest, InATimerClosesTheDialog) {
  user.whenUp = [&](const std::string&) { component.reset(); };
  run(2);
  expectClosed();
  EXPECT_TRUE(isUnchanged());
  EXPECT_EQ(user.windows(), 1);
}

TEST_F(MisuseReleaseTest, UnderABoxClosesTheBoxAndTheDialog) {
  user.presses = {"cmdAuto"};
  user.whenUp = [&](const std::string& name) {
    if (name == "msgBox") component.reset();
  };
  run(2);
  expectClosed();
  EXPECT_TRUE(isUnchanged());
  EXPECT_EQ(user.takeBoxes().size(), 1U);
}

TEST_F(MisuseReleaseTest, UnderAnotherDialogClosesBoth) {
  for (const char* button : {"cmdSonderkreise", "cmdOptionen"}) {
    SCOPED_TRACE(button);
    if (!component) renew();
    user.presses = {button};
    std::string last;
    user.whenUp = [&](const std::string& name) {
      last = name;
      if (name != "frmNummernkreise") component.reset();
    };
    run(2);
    EXPECT_NE(last, "frmNummernkreise");
    expectClosed();
    EXPECT_TRUE(isUnchanged());
  }
}

TEST_F(MisuseReleaseTest, WithAListOpenClosesTheList) {
  user.whenUp = [&](const std::string& name) {
    if (name != "frmNummernkreise") return;
    auto* combo =
        QApplication::activeModalWidget()->findChild<QComboBox*>(QStringLiteral("cboUser"));
    ASSERT_NE(combo, nullptr);
    combo->showPopup();
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    component.reset();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  };
  run(2);
  expectClosed();
}

TEST_F(MisuseReleaseTest, InEachCallOfItsComponents) {
  user.presses = {"cmdBuchungskreise", "cmdOptionen", "cmdAuto", "cmdOK"};
  for (const std::int32_t application : {1, 2})
    for (const char* member :
         {"CreateObject", "Texts", "Picture", "Messages", "Show", "Connection", "MultiSelect",
          "Circles.Show", "Settings.Init", "GetSetting", "SaveSetting", "~Circles"}) {
      if (application == 1 && std::string(member).find("Setting") != std::string::npos)
        continue;  // there is no button for them
      if (application == 2 && (std::string(member) == "Messages" || std::string(member) == "Show"))
        continue;  // the component has boxes of its own
      SCOPED_TRACE(member + std::string(" of application ") + std::to_string(application));
      renew();
      calls.clear();
      host.before = releasing(member);
      run(application);
      expectClosed();
    }
}

TEST_F(MisuseReleaseTest, InEachCallThatShowsAFailure) {
  for (const char* member : {"Messages", "ErrorNumber", "Prepare", "Text", "Show"}) {
    SCOPED_TRACE(member);
    renew();
    calls.clear();
    host.before = [release = releasing(member)](const std::string& entered) {
      release(entered);
      if (entered == "Picture") throw Error(1, "", "kein Bild");
    };
    run(1);
    expectClosed();
    EXPECT_TRUE(isUnchanged());
  }
}

// Every call that reaches the host's database layer, from Init to the end of a save.
TEST_F(MisuseReleaseTest, InEachCallOfItsDatabaseLayer) {
  user.presses = {"cmdAuto", "cmdOK"};
  int released = 0;
  for (;; ++released) {
    SCOPED_TRACE("call " + std::to_string(released + 1));
    renewAll();
    bool commits = false;
    hooks.before = [&, sampled = SampledCalls(),
                    left = released + 1](const std::string& member) mutable {
      if (!component || !sampled.takes(member)) return;
      commits = commits || member == "CommitTrans";
      if (--left == 0) component.reset();
    };
    run(2);
    hooks.before = nullptr;
    if (component) break;
    expectClosed();
    EXPECT_EQ(isUnchanged(), !commits);
    user.takeBoxes();
    if (HasFailure()) break;
  }
  EXPECT_GT(released, 90);
  EXPECT_FALSE(isUnchanged()) << "the last run has saved";
}

// Another writer keeps the save waiting, and ends only after the component went.
TEST_F(MisuseReleaseTest, WhileAStatementWaitsForALock) {
  user.presses = {"cmdAuto", "cmdOK"};
  const auto other = database->connect();
  hooks.before = [&](const std::string& member) {
    if (member != "LockWait.Lasts" || !component) return;
    component.reset();
    other->RollbackTrans();
  };
  writeWhenUp(*other);
  run(2);
  expectClosed();
  EXPECT_TRUE(isUnchanged());
}

TEST_F(MisuseReleaseTest, WhileInitWaitsForALock) {
  const auto other = database->connect();
  lockOut(*other);
  releaseInAWait(*other);
}

TEST_F(MisuseReleaseTest, WhileOpeningWaitsForALock) {
  const auto other = database->connect();
  host.before = [&](const std::string& member) {
    if (member != "CreateObject") return;
    lockOut(*other);
  };
  releaseInAWait(*other);
}

// The component keeps the host's connection until it has closed.
TEST_F(MisuseReleaseTest, TheHostsConnectionIsClosedWhileAStatementWaits) {
  user.presses = {"cmdAuto", "cmdOK"};
  const auto other = database->connect();
  bool isClosed = false;
  hooks.before = [&](const std::string& member) {
    if (member != "LockWait.Lasts" || isClosed) return;
    isClosed = true;
    real->Close();
  };
  writeWhenUp(*other);
  run(2);
  EXPECT_TRUE(isClosed);
  EXPECT_TRUE(component);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(hasBox(user.takeBoxes(), "Fehler 3704"));
  other->RollbackTrans();
  EXPECT_TRUE(isUnchanged());
  EXPECT_FALSE(tellsOfWaits());
}

TEST_F(MisuseReleaseTest, TogetherWithTheHost) {
  auto mortal = std::make_unique<RudeHost>();
  component = createVXNummernkreise(*mortal);
  user.presses = {"cmdAuto", "cmdOK"};
  user.whenUp = [&](const std::string& name) {
    if (name != "msgBox") return;
    component.reset();
    connection.reset();
  };
  VXNummernkreise* const released = component.get();
  ASSERT_TRUE(init(2));
  released->ShowDialog();
  mortal.reset();
  expectClosed();
  EXPECT_TRUE(isUnchanged());
}

TEST_F(MisuseReleaseTest, OnAnotherThreadWaitsForThatOfTheDialogs) {
  ASSERT_TRUE(init());
  std::thread([&] { component.reset(); }).join();
  EXPECT_FALSE(component);
  EXPECT_GT(connection.use_count(), 1) << "its parts wait for their thread";
  QCoreApplication::processEvents();
  EXPECT_EQ(connection.use_count(), 1);
}

TEST_F(MisuseReleaseTest, OnAnotherThreadClosesTheOpenDialog) {
  ASSERT_TRUE(init());
  VXNummernkreise* const released = component.get();
  std::thread other;
  user.presses = {"nothing"};
  user.whenUp = [&](const std::string&) {
    other = std::thread([&] { component.reset(); });
    other.join();
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  };
  released->ShowDialog();
  expectClosed();
  EXPECT_TRUE(isUnchanged());
}

// The user goes on meanwhile, and may be through before it comes to that.
TEST_F(MisuseReleaseTest, OnAnotherThreadAtAnyMoment) {
  user.presses = {"cmdAuto", "cmdSonderkreise", "cmdOptionen"};
  for (const std::int32_t application : {1, 2}) {
    SCOPED_TRACE(application);
    renew();
    ASSERT_TRUE(init(application));
    VXNummernkreise* const released = component.get();
    std::thread other;
    user.whenUp = [&](const std::string&) {
      if (!other.joinable()) other = std::thread([&] { component.reset(); });
    };
    released->ShowDialog();
    other.join();
    QCoreApplication::processEvents();
    expectClosed();
    EXPECT_TRUE(isUnchanged());
  }
}

}  // namespace
}  // namespace vexnumkr::test

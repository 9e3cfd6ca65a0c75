// Running a scenario.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "scenario/driver/stage.h"
#include "scenario/language/script.h"
#include "scenario/windows/watchdog.h"

class QMessageBox;

namespace vexnumkr::scenario {

/// Carries out the commands one after the other, each when the one before has done its work.
///
/// A command that opens a modal window does not return before that is closed; the commands that
/// follow it run inside it, in the window's own event loop. So this is not a loop but is driven
/// from whatever loop is running: onIdle() takes the next step there, and commands that have not
/// returned lie below it on the stack.
class Interpreter {
 public:
  enum class Outcome { Finished, Failed };

  /// `onEnd` is called once, when the last command has done its work or when one cannot be carried
  /// out; in the latter case it must not return, since nobody would answer the open windows.
  Interpreter(std::vector<Command> commands, Stage& stage, Watchdog& watchdog,
              std::function<void(Outcome)> onEnd);

  /// Takes the next step: answers a message box, goes on with a command or begins the next one.
  /// REQUIRES: the event loop has nothing left to do.
  void onIdle();

 private:
  // A command, or a part of it, that is being carried out.
  struct Call {
    int line;
    std::size_t formsBefore;
  };

  bool mayGoOn() const;
  void begin(const Command& command);
  void carryOut(const std::function<void()>& part);
  void answer(QMessageBox& box);
  void finish();
  void fail(const std::string& why);
  int currentLine() const;

  std::vector<Command> commands_;
  Stage& stage_;
  Watchdog& watchdog_;
  std::function<void(Outcome)> onEnd_;
  std::size_t next_ = 0;
  std::vector<Call> calls_;
  bool hasEnded_ = false;
};

}  // namespace vexnumkr::scenario

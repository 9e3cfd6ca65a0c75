#include "scenario/driver/interpreter.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <exception>
#include <utility>

#include "scenario/windows/input.h"

namespace vexnumkr::scenario {
namespace {

constexpr const char* answeredProperty = "answeredByScenario";

QAbstractButton* buttonOf(const QMessageBox& box, const std::string& answer) {
  return box.findChild<QAbstractButton*>(QString::fromStdString(answer));
}

std::string titleOf(const QMessageBox& box) { return box.windowTitle().toStdString(); }

std::string promptOf(const QMessageBox& box) {
  return box.property("prompt").toString().toStdString();
}

// The answer that a box gets when none is queued; empty for a box that asks something.
std::string answerOfItself(const QMessageBox& box) {
  const bool onlyTells = box.buttons().size() == 1 && buttonOf(box, "ok") != nullptr;
  return onlyTells ? "ok" : "";
}

}  // namespace

Interpreter::Interpreter(std::vector<Command> commands, Stage& stage, Watchdog& watchdog,
                         std::function<void(Outcome)> onEnd)
    : commands_(std::move(commands)),
      stage_(stage),
      watchdog_(watchdog),
      onEnd_(std::move(onEnd)) {}

int Interpreter::currentLine() const { return next_ == 0 ? 0 : commands_[next_ - 1].line; }

// A command that has not returned lets others run only inside a form that it has opened. Where it
// is on its way back from there, or just lets pending messages be processed, it comes first.
bool Interpreter::mayGoOn() const {
  return calls_.empty() || stage_.windows.formCount() > calls_.back().formsBefore;
}

void Interpreter::onIdle() {
  if (hasEnded_ || stage_.windows.handBackFocus()) return;
  if (QMessageBox* box = stage_.windows.box()) {
    if (!box->property(answeredProperty).toBool()) answer(*box);
    return;
  }
  if (!mayGoOn()) {
    watchdog_.waitFor("the command of line " + std::to_string(calls_.back().line) + " to return");
    return;
  }
  if (!stage_.rest.empty()) {
    const auto part = std::move(stage_.rest.front());
    stage_.rest.pop_front();
    carryOut(part);
  } else if (next_ < commands_.size()) {
    begin(commands_[next_++]);
  } else {
    finish();
  }
}

void Interpreter::begin(const Command& command) {
  stage_.print("> " + command.text);
  watchdog_.begin(command.line, "the command to return or to open a dialog");
  const Handler handler = allHandlers().at(command.name);
  carryOut([&] { handler(stage_, command); });
}

void Interpreter::carryOut(const std::function<void()>& part) {
  calls_.push_back({currentLine(), stage_.windows.formCount()});
  try {
    part();
  } catch (const std::exception& failure) {
    fail(failure.what());
  }
  calls_.pop_back();
  watchdog_.waitFor("the event loop to have nothing left to do");
}

void Interpreter::answer(QMessageBox& box) {
  std::string answer = answerOfItself(box);
  if (!stage_.answers.empty()) {
    answer = stage_.answers.front();
    stage_.answers.pop_front();
  }
  if (answer.empty())
    return fail("nobody answers the box '" + titleOf(box) + "': " + promptOf(box));
  QAbstractButton* button = buttonOf(box, answer);
  if (button == nullptr) return fail("the box '" + titleOf(box) + "' does not offer " + answer);
  stage_.print("box: " + joined({printedText(titleOf(box)), printedText(promptOf(box)),
                                 "buttons=" + std::to_string(box.property("buttons").toInt()),
                                 "answer=" + answer}));
  box.setProperty(answeredProperty, true);
  ++stage_.boxesAnswered;
  clickAt(*button, button->rect().center());
}

void Interpreter::finish() {
  if (stage_.windows.formCount() > 0) return fail("a dialog is still open");
  hasEnded_ = true;
  watchdog_.end();
  onEnd_(Outcome::Finished);
}

void Interpreter::fail(const std::string& why) {
  hasEnded_ = true;
  stage_.transcript.failed(currentLine(), why);
  onEnd_(Outcome::Failed);
}

}  // namespace vexnumkr::scenario

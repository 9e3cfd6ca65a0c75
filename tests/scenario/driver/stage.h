// What the commands of a scenario work on.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>

#include "scenario/language/script.h"
#include "scenario/language/transcript.h"
#include "scenario/windows/failure.h"
#include "scenario/windows/windows.h"
#include "scenario/world/session.h"

namespace vexnumkr::scenario {

struct Stage {
  Session& session;
  Windows& windows;
  Transcript& transcript;
  /// For coming message boxes.
  std::deque<std::string> answers;
  /// How many boxes have been answered.
  int boxesAnswered = 0;
  /// What is left of the command being carried out, for when the event loop is idle again.
  std::deque<std::function<void()>> rest;

  /// The dialog that a user can work in. Error: CannotDo when none is open.
  QWidget& form() const { return windows.activeForm(); }
  void print(const std::string& line) { transcript.line(line); }
  /// Error: CannotDo while a dialog is open, whose call into the component has not returned.
  void requireNoDialog() const {
    if (windows.formCount() > 0) throw CannotDo("a dialog is open");
  }
};

/// Carries a command out, or begins to. Errors: CannotDo, and vexnumkr::Error from the database.
using Handler = void (*)(Stage&, const Command&);
using Handlers = std::map<std::string, Handler>;

/// The commands by name, each group in a file of its own.
Handlers sessionHandlers();
Handlers inputHandlers();
Handlers gridHandlers();
Handlers dialogReportHandlers();
Handlers dataReportHandlers();

/// All of them.
const Handlers& allHandlers();

}  // namespace vexnumkr::scenario

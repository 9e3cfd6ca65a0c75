#include "cli/commands/commands.h"

namespace vexnumkr::cli {

void addCommands(CommandSet& commands) {
  addDraw(commands);
  addCheck(commands);
  addGaps(commands);
  addMask(commands);
  addRollover(commands);
  addTransfer(commands);
  addReport(commands);
  addJournal(commands);
  addDoctor(commands);
  addSchema(commands);
}

}  // namespace vexnumkr::cli

// The commands, each in a file of its name.
#pragma once

#include "cli/command_set.h"

namespace vexnumkr::cli {

void addCheck(CommandSet& commands);
void addDoctor(CommandSet& commands);
void addDraw(CommandSet& commands);
void addGaps(CommandSet& commands);
void addJournal(CommandSet& commands);
void addMask(CommandSet& commands);
void addReport(CommandSet& commands);
void addRollover(CommandSet& commands);
void addSchema(CommandSet& commands);
void addTransfer(CommandSet& commands);

/// All of them, in the order in which the help lists them.
void addCommands(CommandSet& commands);

}  // namespace vexnumkr::cli

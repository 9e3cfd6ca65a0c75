#include "cli/commands/commands.h"

namespace vexnumkr::cli {

void addCommands(CommandSet& commands) {
  addDraw(commands);
  addGaps(commands);
  addSchema(commands);
}

}  // namespace vexnumkr::cli

#include "cli/program_database.h"

namespace vexnumkr::test {

ProgramRun ProgramDatabase::vexnumkr(const std::vector<std::string>& arguments) {
  QStringList list;
  for (const std::string& argument : arguments) list << QString::fromStdString(argument);
  return runProgram(QStringLiteral(VEXNUMKR_PROGRAM), list,
                    {{QStringLiteral("VEXNUMKR_CONNECTION"),
                      QString::fromStdString(database().connectionString())}});
}

std::string ProgramDatabase::printed(const std::vector<std::string>& arguments, int exitCode) {
  const ProgramRun run = vexnumkr(arguments);
  EXPECT_EQ(run.exitCode, exitCode) << run.errors << run.output;
  return run.output;
}

}  // namespace vexnumkr::test

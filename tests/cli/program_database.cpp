#include "cli/program_database.h"

namespace vexnumkr::test {

ProgramRun ProgramDatabase::vexnumkr(const std::vector<std::string>& arguments,
                                     const std::map<std::string, std::string>& environment) {
  QStringList list;
  for (const std::string& argument : arguments) list << QString::fromStdString(argument);
  QMap<QString, QString> variables = {{QStringLiteral("VEXNUMKR_CONNECTION"),
                                       QString::fromStdString(database().connectionString())}};
  for (const auto& [name, value] : environment)
    variables[QString::fromStdString(name)] = QString::fromStdString(value);
  return runProgram(QStringLiteral(VEXNUMKR_PROGRAM), list, variables);
}

std::string ProgramDatabase::printed(const std::vector<std::string>& arguments, int exitCode) {
  const ProgramRun run = vexnumkr(arguments);
  EXPECT_EQ(run.exitCode, exitCode) << run.errors << run.output;
  return run.output;
}

}  // namespace vexnumkr::test

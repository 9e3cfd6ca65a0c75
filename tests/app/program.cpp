#include "app/program.h"

#include <QProcess>

namespace vexnumkr::test {

namespace {

constexpr int longestRunMilliseconds = 90'000;

QProcessEnvironment with(const QMap<QString, QString>& variables) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (auto variable = variables.begin(); variable != variables.end(); ++variable) {
    if (variable.value().isNull()) {
      environment.remove(variable.key());
    } else {
      environment.insert(variable.key(), variable.value());
    }
  }
  return environment;
}

}  // namespace

ProgramRun runProgram(const QString& program, const QStringList& arguments,
                      const QMap<QString, QString>& environment,
                      const std::function<void(QProcess&)>& prepare) {
  QProcess process;
  process.setProcessEnvironment(with(environment));
  prepare(process);
  process.start(program, arguments);
  ProgramRun run;
  if (!process.waitForFinished(longestRunMilliseconds)) {
    process.kill();
    process.waitForFinished();
  } else if (process.exitStatus() == QProcess::NormalExit) {
    run.exitCode = process.exitCode();
  }
  run.output = process.readAllStandardOutput().toStdString();
  run.errors = process.readAllStandardError().toStdString();
  return run;
}

}  // namespace vexnumkr::test

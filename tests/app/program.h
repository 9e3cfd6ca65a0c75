// Runs a program and keeps what it printed.
#pragma once

#include <QMap>
#include <QStringList>
#include <functional>
#include <string>

class QProcess;

namespace vexnumkr::test {

struct ProgramRun {
  int exitCode = -1;  ///< -1 when the program crashed or did not end
  std::string output;
  std::string errors;
};

/// Runs `program` to its end, with the variables of `environment` set, or unset where they are
/// null, after `prepare` has done with the process what it wants.
ProgramRun runProgram(
    const QString& program, const QStringList& arguments,
    const QMap<QString, QString>& environment = {},
    const std::function<void(QProcess&)>& prepare = [](QProcess&) {});

}  // namespace vexnumkr::test

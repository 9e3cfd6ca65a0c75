// Runs a program with one of its outputs being a terminal.
#pragma once

#include "app/program.h"

namespace vexnumkr::test {

enum class Channel { output, errors };

/// As runProgram; what arrives on the terminal stands in the member of that channel, with the
/// terminal's own "\r\n" for line ends. Error: std::runtime_error where the system has no
/// terminals.
ProgramRun runProgramInTerminal(Channel terminal, const QString& program,
                                const QStringList& arguments,
                                const QMap<QString, QString>& environment = {});

}  // namespace vexnumkr::test

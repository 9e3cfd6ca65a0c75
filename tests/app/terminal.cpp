#include "app/terminal.h"

#include <pty.h>
#include <unistd.h>

#include <QProcess>
#include <array>
#include <stdexcept>
#include <thread>

namespace vexnumkr::test {
namespace {

// Reads until every program has let go of the other end.
std::string readAll(int file) {
  std::string all;
  std::array<char, 4096> block;
  for (;;) {
    const ssize_t count = read(file, block.data(), block.size());
    if (count <= 0) return all;
    all.append(block.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

ProgramRun runProgramInTerminal(Channel terminal, const QString& program,
                                const QStringList& arguments,
                                const QMap<QString, QString>& environment) {
  int shown = -1;
  int written = -1;
  if (openpty(&shown, &written, nullptr, nullptr, nullptr) != 0)
    throw std::runtime_error("The system has no terminal to give.");
  const bool isOutput = terminal == Channel::output;
  std::string text;
  std::thread reader;
  ProgramRun run = runProgram(program, arguments, environment, [&](QProcess& process) {
    process.setChildProcessModifier(
        [=] { dup2(written, isOutput ? STDOUT_FILENO : STDERR_FILENO); });
    QObject::connect(&process, &QProcess::started, [&] {
      close(written);
      reader = std::thread([&text, shown] { text = readAll(shown); });
    });
  });
  if (!reader.joinable()) close(written);
  if (reader.joinable()) reader.join();
  close(shown);
  (isOutput ? run.output : run.errors) = text;
  return run;
}

}  // namespace vexnumkr::test

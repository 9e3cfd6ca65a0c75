// vexnumkr-scenario: runs a scenario file against the component with its real dialogs and prints
// what happens. See docs/scenarios.md.
#include <QApplication>
#include <QStyleHints>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include "scenario/driver/interpreter.h"
#include "scenario/windows/idle_pump.h"
#include "scenario/world/temporary_folder.h"

namespace {

using namespace vexnumkr::scenario;

constexpr int exitUnreadable = 2;
constexpr int exitFailed = 3;
constexpr std::chrono::seconds patience{20};

constexpr const char* usage =
    "usage: vexnumkr-scenario [--connection STRING] [--platform NAME] FILE\n"
    "FILE - reads standard input.\n";

struct Arguments {
  std::string connection;
  std::string platform = "offscreen";
  std::string file;
};

std::optional<Arguments> readArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  for (std::size_t i = 0; i < words.size(); ++i) {
    std::string* value = words[i] == "--connection" ? &arguments.connection
                         : words[i] == "--platform" ? &arguments.platform
                                                    : nullptr;
    if (value != nullptr) {
      if (++i == words.size()) return std::nullopt;
      *value = words[i];
    } else if (arguments.file.empty() && (words[i] == "-" || words[i].rfind("-", 0) != 0)) {
      arguments.file = words[i];
    } else {
      return std::nullopt;
    }
  }
  if (arguments.file.empty()) return std::nullopt;
  return arguments;
}

std::optional<std::string> readFile(const std::string& name) {
  std::ifstream file;
  if (name != "-") file.open(name, std::ios::binary);
  std::istream& in = name == "-" ? std::cin : file;
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// The surroundings must not show in a transcript: no desktop settings, nothing animated or
// blinking.
void prepareEnvironment(const std::string& platform) {
  qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString(platform));
  qputenv("QT_NO_GLIB", "1");
  qunsetenv("QT_QPA_PLATFORMTHEME");
  qunsetenv("QT_STYLE_OVERRIDE");
}

// Qt remarks on what the offscreen platform and machines without a session lack.
void writeMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
  for (const char* remark : {"This plugin does not support", "QStandardPaths: XDG_RUNTIME_DIR"})
    if (message.startsWith(QLatin1String(remark))) return;
  std::cerr << message.toStdString() << '\n';
}

void prepareApplication() {
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setCursorFlashTime(0);
  QApplication::setDoubleClickInterval(0);
  for (const Qt::UIEffect effect : {Qt::UI_AnimateMenu, Qt::UI_FadeMenu, Qt::UI_AnimateCombo,
                                    Qt::UI_AnimateTooltip, Qt::UI_FadeTooltip})
    QApplication::setEffectEnabled(effect, false);
}

// Ends the program from wherever it is, inside any number of event loops.
[[noreturn]] void endNow(TemporaryFolder& folder) {
  std::cout.flush();
  folder.remove();
  std::_Exit(exitFailed);
}

int run(std::vector<Command> commands, const std::string& givenConnection) {
  TemporaryFolder folder;
  const std::string connection = givenConnection.empty()
                                     ? "Driver=QSQLITE;Database=" + folder.path() + "/nummern.db"
                                     : givenConnection;
  Transcript transcript(std::cout);
  Session session(connection);
  Windows windows([&](const char* change, const std::string& form) {
    transcript.line(std::string(change) + ": " + form);
  });
  Stage stage{session, windows, transcript, {}, 0, {}};
  Watchdog watchdog(patience, [&](int line, const std::string& waitingFor) {
    transcript.failed(line, "waited too long for " + waitingFor);
    endNow(folder);
  });
  Interpreter interpreter(std::move(commands), stage, watchdog, [&](Interpreter::Outcome outcome) {
    if (outcome == Interpreter::Outcome::Failed) endNow(folder);
    QApplication::exit(0);
  });
  IdlePump pump([&] { interpreter.onIdle(); });
  pump.start();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const auto arguments = readArguments({argv + 1, argv + argc});
  if (!arguments) {
    std::cerr << usage;
    return exitUnreadable;
  }
  const auto file = readFile(arguments->file);
  if (!file) {
    std::cerr << "cannot read " << arguments->file << '\n';
    return exitUnreadable;
  }
  try {
    std::vector<Command> commands = readScript(*file);
    prepareEnvironment(arguments->platform);
    qInstallMessageHandler(writeMessage);
    int qtArguments = 1;
    const QApplication application(qtArguments, argv);
    prepareApplication();
    return run(std::move(commands), arguments->connection);
  } catch (const ScriptError& error) {
    std::cerr << "line " << error.line() << ": " << error.what() << '\n';
    return exitUnreadable;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return exitFailed;
  }
}

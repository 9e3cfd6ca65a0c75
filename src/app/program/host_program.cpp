#include "app/program/host_program.h"

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>
#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>
#include <vexnumkr/version.h>

#include "app/command_line.h"
#include "app/components/offered_components.h"
#include "app/components/window_icon.h"
#include "app/dark_palette.h"
#include "app/process_list.h"
#include "app/sample/create_sample.h"
#include "app/tour/guided_tour.h"

namespace vexnumkr::app {
namespace {

std::optional<std::string> environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

bool isSet(const char* name) {
  const auto value = environment(name);
  return value && !value->empty();
}

bool hasDisplay() {
  return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

/// Chooses the platform before the application object does; false where a dialog cannot be shown.
bool preparePlatform(const HostOptions& options) {
#if defined(__linux__)
  if (hasDisplay()) return true;
  if (options.tour.empty()) return false;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
#else
  static_cast<void>(options);
#endif
  return true;
}

void makeGerman(QApplication& application) {
  QLocale::setDefault(QLocale(QLocale::German));
  auto* translator = new QTranslator(&application);
  if (translator->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(translator);
}

/// Shows the dialog to the user, or by itself in the guided tour.
int showDialog(VXNummernkreise& component, const HostOptions& options) {
  if (options.tour.empty()) {
    component.ShowDialog();
    return exit_status::done;
  }
  GuidedTour tour(options.tour, std::cout);
  tour.start();
  component.ShowDialog();
  return tour.finish() ? exit_status::done : exit_status::failed;
}

int runDialog(int argc, char** argv, const HostOptions& options) {
  if (!preparePlatform(options)) {
    std::cerr << "Es gibt keine Anzeige (DISPLAY und WAYLAND_DISPLAY sind leer). "
                 "Ohne Anzeige geht nur --tour.\n";
    return exit_status::failed;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("vexnumkr-host"));
  QApplication::setWindowIcon(windowIcon());
  makeGerman(application);
  if (options.dark) makeDark();

  StandAloneHost host;
  const std::shared_ptr<Connection> connection = openQtSqlConnection(options.connection);
  const std::unique_ptr<VXNummernkreise> component = createVXNummernkreise(host);
  if (!component->Init(connection, options.application, options.user, options.date))
    return exit_status::failed;
  return showDialog(*component, options);
}

void makeSample(int argc, char** argv, const HostOptions& options) {
  const QCoreApplication application(argc, argv);
  std::cout << (options.createTables ? createSampleTables(options.connection, options.sampleScale)
                                     : createSampleFile(options.createSample, options.sampleScale));
}

int runOptions(int argc, char** argv, const HostOptions& options) {
  if (options.showHelp) {
    std::cout << helpText();
    return exit_status::done;
  }
  if (options.showVersion) {
    std::cout << "vexnumkr-host " << version << '\n';
    return exit_status::done;
  }
  if (options.createTables || !options.createSample.empty()) makeSample(argc, argv, options);
  return options.showDialog ? runDialog(argc, argv, options) : exit_status::done;
}

}  // namespace

int runHost(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  HostOptions options;
  const auto shown = [&](const std::string& text) {
    return withoutPasswordsOf(arguments, withoutPasswords(text, options.connection));
  };
  try {
    options = readCommandLine(arguments, environment("VEXNUMKR_CONNECTION"));
    hidePasswords(argc, argv);
    return runOptions(argc, argv, options);
  } catch (const UsageError& error) {
    std::cerr << "vexnumkr-host: " << shown(error.what())
              << "\nDer Aufruf wird mit \"vexnumkr-host --help\" erklärt.\n";
    return exit_status::wrongUsage;
  } catch (const Error& error) {
    std::cerr << "vexnumkr-host: " << shown(error.description()) << " (" << error.source()
              << ", Fehler " << error.number() << ")\n";
  } catch (const std::bad_alloc&) {
    std::cerr << "vexnumkr-host: Der Arbeitsspeicher reicht nicht.\n";
  } catch (const std::exception& error) {
    std::cerr << "vexnumkr-host: " << shown(error.what()) << '\n';
  } catch (...) {
    std::cerr << "vexnumkr-host: Etwas Unbekanntes ist fehlgeschlagen.\n";
  }
  return exit_status::failed;
}

}  // namespace vexnumkr::app

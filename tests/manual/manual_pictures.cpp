// Makes the pictures of the users' manual.
//
//   vexnumkr-manual-pictures FOLDER
//
// It works the stand-alone host's dialogs over its sample company, without a display, and always
// makes the same pictures, up to the fonts that the system has.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cstdlib>
#include <iostream>
#include <sstream>

#include <vexnumkr/adapters.h>
#include <vexnumkr/component.h>
#include <vexnumkr/connection_string.h>
#include <vexnumkr/error.h>

#include "app/components/offered_components.h"
#include "app/sample/create_sample.h"
#include "manual/manual_tour.h"

namespace vexnumkr::app {

namespace {

constexpr const char* date = "20261121";

template <class Tour>
bool tour(const std::string& database, std::int32_t application, const std::string& folder) {
  StandAloneHost host;
  const auto component = createVXNummernkreise(host);
  if (!component->Init(openQtSqlConnection(sqliteConnectionString(database)), application,
                       "Hoffmann", date)) {
    return false;
  }
  std::ostringstream narration;
  Tour manual(folder, narration);
  manual.start();
  component->ShowDialog();
  const bool complete = manual.finish() && manual.saved();
  if (!complete) std::cerr << narration.str();
  return complete;
}

int makePictures(const std::string& folder) {
  const QTemporaryDir temporary;
  const std::string database = temporary.filePath(QStringLiteral("firma.db")).toStdString();
  createSampleFile(database);
  const bool made =
      tour<ManualTour>(database, 1, folder) && tour<ManualTourOfOptions>(database, 2, folder);
  return made ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

}  // namespace vexnumkr::app

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: vexnumkr-manual-pictures FOLDER\n";
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setCursorFlashTime(0);
  try {
    return vexnumkr::app::makePictures(argv[1]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
}

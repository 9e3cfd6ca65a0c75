#include "app/tour/guided_tour.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPixmap>
#include <QTimer>
#include <ostream>
#include <utility>

#include <vexnumkr/error.h>

#include "app/files.h"
#include "app/tour/user_input.h"

namespace vexnumkr::app {
namespace {

constexpr const char* mainDialog = "frmNummernkreise";
constexpr const char* specialRangesDialog = "frmSonderkreise";
constexpr const char* optionsDialog = "frmOptionen";
constexpr const char* circlesDialog = "frmBuchungskreise";
constexpr const char* grid = "sftNummernkreise";

constexpr int tickMilliseconds = 20;
constexpr qint64 patienceMilliseconds = 30'000;

bool isCalled(const QWidget& window, const char* name) {
  return window.objectName() == QLatin1String(name);
}

}  // namespace

GuidedTour::GuidedTour(const std::string& folder, std::ostream& narration)
    : folder_(folder), narration_(narration) {
  makeFolder(folder);
}

GuidedTour::~GuidedTour() = default;

void GuidedTour::start() {
  steps_ = {{mainDialog, [this](QWidget& dialog) { plan(dialog); }}};
  waiting_.start();
  scheduleTick();
}

bool GuidedTour::finish() {
  const bool complete = steps_.empty() && !failed_;
  narration_ << (complete ? "Rundgang beendet: " : "Rundgang abgebrochen: ") << pictures_
             << " Bilder in " << folder_ << '\n';
  steps_.clear();
  return complete;
}

// A step may open a dialog and so return only when that is closed again. A single shot each time
// keeps the tour going inside.
void GuidedTour::scheduleTick() { QTimer::singleShot(tickMilliseconds, this, &GuidedTour::tick); }

void GuidedTour::tick() {
  if (steps_.empty()) return;
  scheduleTick();
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr || !window->isVisible()) return;
  if (isCalled(*window, steps_.front().window)) {
    runNextStep(*window);
  } else if (qobject_cast<QMessageBox*>(window) != nullptr) {
    leave(*window,
          "Unerwartete Meldung: " + static_cast<QMessageBox*>(window)->text().toStdString());
  } else if (waiting_.elapsed() > patienceMilliseconds) {
    leave(*window, std::string("Das Fenster ") + steps_.front().window + " erscheint nicht.");
  }
}

void GuidedTour::runNextStep(QWidget& window) {
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  waiting_.restart();
  try {
    step.act(window);
  } catch (const Error& error) {
    leave(window, error.description());
  }
}

void GuidedTour::leave(QWidget& window, const std::string& why) {
  failed_ = true;
  photograph(window, "unerwartet", why);
  steps_ = {{mainDialog, [](QWidget& dialog) { clickButton(dialog, "cmdCancel"); }}};
  waiting_.restart();
  if (!isCalled(window, mainDialog)) window.close();
}

void GuidedTour::photograph(QWidget& window, const std::string& name, const std::string& text) {
  ++pictures_;
  const QString file = QStringLiteral("%1-%2.png")
                           .arg(pictures_, 2, 10, QLatin1Char('0'))
                           .arg(QString::fromStdString(name));
  if (!window.grab().save(QDir(QString::fromStdString(folder_)).filePath(file))) failed_ = true;
  narration_ << "  " << file.toStdString() << "  " << text << std::endl;
}

void GuidedTour::look(const char* window, const std::string& name, const std::string& text) {
  then(window, [=, this](QWidget& shown) { photograph(shown, name, text); });
}

void GuidedTour::then(const char* window, std::function<void(QWidget&)> act) {
  steps_.push_back({window, std::move(act)});
}

void GuidedTour::plan(QWidget& dialog) {
  look(mainDialog, "dialog", "Der Dialog ist geöffnet und zeigt alle Nummernkreise.");
  planFilters();
  planEntry();
  planTicks();
  planSideDialogs(dialog);
  then(mainDialog, [](QWidget& shown) { clickButton(shown, "cmdCancel"); });
}

void GuidedTour::planFilters() {
  const auto filter = [this](int entry) {
    then(mainDialog, [=](QWidget& shown) { chooseEntry(shown, "cboBuchungskreis", entry); });
  };
  filter(1);
  look(mainDialog, "filter-aktive", "Der Filter zeigt nur die aktiven Buchungskreise.");
  filter(2);
  look(mainDialog, "filter-buchungskreis", "Der Filter zeigt einen einzelnen Buchungskreis.");
  filter(0);
}

void GuidedTour::planEntry() {
  const auto press = [this](Qt::Key key) {
    steps_.push_back({mainDialog, [=](QWidget& shown) { pressKeyInFocus(shown, key); }});
  };
  steps_.push_back({mainDialog, [](QWidget& shown) { editFirstRange(shown, grid); }});
  press(Qt::Key_Tab);
  look(mainDialog, "eingabe", "F2 und Tab öffnen den aktuellen Wert zur Eingabe.");
  press(Qt::Key_Escape);
}

void GuidedTour::planTicks() {
  const auto tickRange = [this] {
    then(mainDialog, [](QWidget& shown) { tickLastOfFirstGroup(shown, grid); });
  };
  tickRange();
  look(mainDialog, "angekreuzt", "Die Leertaste kreuzt einen Nummernkreis an oder ab.");
  then(mainDialog, [](QWidget& shown) { chooseEntry(shown, "cboUser", 1); });
  look(mainDialog, "benutzer", "Für einen Benutzer ist je Belegart ein Nummernkreis gewählt.");
  tickRange();
  look(mainDialog, "benutzer-wahl", "Der Benutzer bekommt einen anderen Nummernkreis.");
  then(mainDialog, [](QWidget& shown) { chooseEntry(shown, "cboUser", 0); });
}

void GuidedTour::planSideDialogs(QWidget& dialog) {
  const auto visit = [&](const char* button, const char* window, const char* leaveBy,
                         const std::string& name, const std::string& text) {
    if (!shows(dialog, button)) return;
    then(mainDialog, [=](QWidget& shown) { clickButton(shown, button); });
    look(window, name, text);
    then(window, [=](QWidget& shown) { clickButton(shown, leaveBy); });
  };
  visit("cmdBuchungskreise", circlesDialog, "cmdSchliessen", "buchungskreise",
        "Die Buchungskreise werden in einem eigenen Fenster verwaltet.");
  visit("cmdSonderkreise", specialRangesDialog, "cmdCancel", "sonderkreise",
        "Sonderkreise werden zusätzlich aktiviert.");
  visit("cmdOptionen", optionsDialog, "cmdCancel", "einstellungen",
        "Die Einstellungen bestimmen die Nummernkreise der Folgebelege.");
}

}  // namespace vexnumkr::app

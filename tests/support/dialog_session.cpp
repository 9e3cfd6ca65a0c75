#include "support/dialog_session.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QWindow>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <vexnumkr/adapters.h>

#include "adapters/qt/tool_tips.h"
#include "adapters/qtforms/qt_forms_toolkit.h"
#include "app/schema/schema.h"
#include "scenario/language/transcript.h"
#include "scenario/windows/controls.h"
#include "scenario/windows/input.h"

namespace vexnumkr::test {
namespace {

constexpr std::chrono::seconds patience{60};

[[noreturn]] void giveUp(int, const std::string& waitingFor) {
  std::fprintf(stderr, "waited too long for %s\n", waitingFor.c_str());
  std::_Exit(EXIT_FAILURE);
}

std::string cellText(const Value& value) { return scenario::printedValue(value); }

// Nothing animated, and no two clicks of different steps taken for a double click.
void calmApplication() {
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setDoubleClickInterval(0);
  QApplication::setCursorFlashTime(0);
  for (const Qt::UIEffect effect : {Qt::UI_AnimateCombo, Qt::UI_AnimateTooltip, Qt::UI_FadeTooltip})
    QApplication::setEffectEnabled(effect, false);
}

// A tip lingers after the mouse has left; it must not be taken for the next one.
void hideToolTips() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->inherits("QTipLabel")) window->hide();
}

}  // namespace

DialogSession::DialogSession()
    : database_(fresh_.connectionString()),
      component_(host_, DatabaseAccess::rowByRow,
                 std::make_unique<FaultyForms>(makeQtFormsToolkit(), faults_),
                 [this] { return now_ += lookTakes_; }),
      watchdog_(patience, giveUp) {
  calmApplication();
  for (const std::string& statement : app::rangeTableStatements(fresh_.schema()))
    database_.run(statement);
  connection_ = scriptedConnection(openQtSqlConnection(connectionString()), script_);
}

DialogSession::~DialogSession() = default;

void DialogSession::smallCompany(const std::string& origin) {
  sql("INSERT INTO tblUser VALUES ('Anna'), ('Max')");
  sql("INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', '" + origin + "'), (2, 'Süd', '" +
      origin + "')");
  sql("INSERT INTO Nummernkreise VALUES "
      "(0, 'AN', 'Angebot', 1, 5, 99, -1, 1, '', ''), "
      "(1, 'AN', 'Angebot', 100, 150, 199, -1, 1, '', 'JNN'), "
      "(2, 'AN', 'Angebot', 200, 200, 299, 0, 1, '', ''), "
      "(0, 'RE', 'Rechnung', 1000, 1500, 1999, -1, 2, '', ''), "
      "(1, 'RE', 'Rechnung', 2000, 2000, 2999, -1, 2, '', '')");
  sql("INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'AN', 'Max', '" + origin + "')");
}

bool DialogSession::init(std::int32_t application, const std::string& date) {
  const bool done = component_.Init(connection_, application, "Max", date);
  script_.takeStatements();
  return done;
}

void DialogSession::show(std::function<void()> steps) {
  watchdog_.begin(0, "the dialog to be closed");
  user_.expectDialog("frmNummernkreise", std::move(steps));
  component_.ShowDialog();
  watchdog_.end();
}

void DialogSession::showToTheEnd(std::function<void()> steps) {
  watchdog_.begin(0, "the application to end");
  user_.expectDialogToTheEnd("frmNummernkreise", std::move(steps));
  QTimer::singleShot(0, &user_, [this] { component_.ShowDialog(); });
  QCoreApplication::exec();
  watchdog_.end();
}

void DialogSession::inCompany(std::int32_t application, const std::function<void()>& steps) {
  smallCompany(application == 1 ? "ORB" : application == 2 ? "ORC" : "");
  init(application);
  show([&] {
    steps();
    if (isOpen()) press("cmdCancel");
  });
}

void DialogSession::press(const std::string& name) {
  QWidget& pressed = control(name);
  scenario::requireUsable(pressed);
  scenario::clickAt(pressed, pressed.rect().center());
}

void DialogSession::select(const std::string& name, const std::string& text) {
  auto& combo = control<QComboBox>(name);
  const int entry = combo.findText(QString::fromStdString(text), Qt::MatchExactly);
  if (entry < 0) throw std::runtime_error(name + " has no entry " + text);
  press(name);
  QAbstractItemView& list = *combo.view();
  if (!list.isVisible()) return;  // the user was told something instead
  const QModelIndex index = combo.model()->index(entry, combo.modelColumn());
  list.scrollTo(index);
  scenario::clickAt(*list.viewport(), list.visualRect(index).center());
}

void DialogSession::key(const std::string& chord, int times) {
  const auto pressed = scenario::readChord(chord);
  if (!pressed) throw std::runtime_error("no key " + chord);
  for (; times > 0; --times) {
    if (isOpen()) ModalUser::waitUntilActive(dialog());
    scenario::pressKey(*pressed);
  }
}

void DialogSession::type(const std::string& text) {
  scenario::typeText(QString::fromStdString(text));
}

void DialogSession::click(std::int32_t item, std::int32_t column, Qt::MouseButton button) {
  const scenario::GridAccess access = gridAccess();
  scenario::clickAt(*access.view().viewport(), access.cellCentre(item, column), button);
}

void DialogSession::clickPicture(std::int32_t item, Qt::MouseButton button) {
  const scenario::GridAccess access = gridAccess();
  scenario::clickAt(*access.view().viewport(), access.pictureCentre(item), button);
}

void DialogSession::closeWindow() {
  QDialog& closing = dialog();
  closing.windowHandle()->close();
  if (user_.front() == &closing) ModalUser::waitUntilActive(closing);
}

void DialogSession::resize(int width, int height) {
  dialog().resize(width, height);
  QCoreApplication::processEvents();
}

QDialog& DialogSession::dialog() const {
  QDialog* front = user_.front();
  if (front == nullptr) throw std::runtime_error("no dialog is open");
  return *front;
}

QWidget& DialogSession::control(const std::string& name) const {
  return scenario::controlOf(dialog(), name);
}

Lines DialogSession::entries(const std::string& name) const {
  const auto& combo = control<QComboBox>(name);
  Lines texts;
  for (int i = 0; i < combo.count(); ++i) texts.push_back(combo.itemText(i).toStdString());
  return texts;
}

std::string DialogSession::shown(const std::string& combo) const {
  return control<QComboBox>(combo).currentText().toStdString();
}

std::string DialogSession::focus() const {
  const QWidget* focused = QApplication::focusWidget();
  return focused == nullptr ? "none" : focused->objectName().toStdString();
}

std::string DialogSession::cell(std::int32_t item, std::int16_t column) const {
  return grid().List(item, column);
}

Lines DialogSession::tree() const {
  const scenario::GridAccess access = gridAccess();
  Lines lines;
  for (std::int32_t item = 0; item < access.grid().ListCount(); ++item) {
    const std::string caption = access.grid().List(item, grid_column::Beschreibung);
    const bool isGroup = access.grid().ItemLevel(item) == 0;
    lines.push_back(isGroup ? caption : access.pictureName(item) + " " + caption);
  }
  return lines;
}

std::string DialogSession::values(std::int32_t item) const {
  std::string line = cell(item, grid_column::Start);
  for (std::int16_t column = 3; column <= 5; ++column) line += "|" + cell(item, column);
  return line;
}

std::string DialogSession::editor() const {
  const scenario::GridAccess access = gridAccess();
  const auto edited = access.grid().editedCell();
  if (!edited) return "none";
  return std::to_string(edited->item) + "/" + std::to_string(edited->column) + " " +
         access.editor().text().toStdString();
}

std::string DialogSession::selectedText() const {
  return gridAccess().editor().selectedText().toStdString();
}

std::string DialogSession::toolTip(std::int32_t item, std::int32_t column) const {
  const scenario::GridAccess access = gridAccess();
  QWidget& viewport = *access.view().viewport();
  const QPoint centre = access.cellCentre(item, column);
  hideToolTips();
  QHelpEvent wanted(QEvent::ToolTip, centre, viewport.mapToGlobal(centre));
  QApplication::sendEvent(&viewport, &wanted);
  const std::string text =
      QToolTip::isVisible() ? toolTipText(QToolTip::text()).toStdString() : std::string();
  hideToolTips();
  return text;
}

std::string DialogSession::range(const std::string& user, std::int32_t circle,
                                 const std::string& key) {
  const XArray& table = session().XArray();
  const std::int32_t found = table.findRange(user, circle, key);
  if (found < 0) return "none";
  const RangeRow& row = table.at(found);
  std::string line = cellText(row.StartWert.toValue());
  for (const Value& each : {row.AktuellerWert.toValue(), row.EndWert.toValue(), row.Maske.toValue(),
                            Value(row.Aktiviert)})
    line += "|" + cellText(each);
  return line;
}

}  // namespace vexnumkr::test

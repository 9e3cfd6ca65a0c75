#include "manual/manual_tour.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QShortcut>

#include <vexnumkr/error.h>

#include "app/tour/user_input.h"

namespace vexnumkr::app {

namespace {

constexpr const char* mainDialog = "frmNummernkreise";
constexpr const char* specialRanges = "frmSonderkreise";
constexpr const char* options = "frmOptionen";
constexpr const char* circles = "frmBuchungskreise";
constexpr const char* circle = "frmBuchungskreis";
constexpr const char* box = "msgBox";

constexpr int titleHeight = 30;
const QColor frameColour(0x8c, 0x8c, 0x8c);
const QColor titleColour(0xe3, 0xe7, 0xec);
const QColor textColour(0x20, 0x20, 0x20);

/// A picture of what a window shows, with the frame and the title that a desktop gives it.
QImage framed(QWidget& window) {
  const QPixmap inside = window.grab();
  QImage image(inside.width() + 2, inside.height() + titleHeight + 1, QImage::Format_RGB32);
  image.fill(titleColour);
  QPainter painter(&image);
  painter.drawPixmap(1, titleHeight, inside);
  painter.setPen(frameColour);
  painter.drawRect(0, 0, image.width() - 1, image.height() - 1);
  painter.drawLine(0, titleHeight - 1, image.width() - 1, titleHeight - 1);
  painter.setPen(textColour);
  QFont font = window.font();
  font.setPixelSize(13);
  painter.setFont(font);
  painter.drawText(QRect(10, 0, image.width() - 40, titleHeight), Qt::AlignVCenter,
                   window.windowTitle());
  if (!window.windowFlags().testFlag(Qt::WindowCloseButtonHint)) return image;
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF cross(image.width() - 22.5, titleHeight / 2.0 - 5, 9, 9);
  painter.setPen(QPen(textColour, 1.3));
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
  return image;
}

QAbstractItemView& grid(QWidget& dialog) {
  auto* found = dialog.findChild<QAbstractItemView*>(QStringLiteral("sftNummernkreise"));
  if (found == nullptr) throw Error::objectNotSet();
  return *found;
}

/// A key for what has the focus in the window, whether or not that is the active one yet.
void press(QWidget& window, Qt::Key key, const QString& text = {}) {
  QWidget* target = window.focusWidget();
  if (target == nullptr) throw Error::objectNotSet();
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(target, &event);
  }
}

void type(QWidget& window, const QString& text) {
  for (const QChar each : text) press(window, Qt::Key_unknown, QString(each));
}

/// Makes the line `line` of the grid the current one, and opens its first value.
void editLine(QWidget& dialog, int line) {
  pressKey(grid(dialog), Qt::Key_Home);
  for (int i = 0; i < line; ++i) pressKey(grid(dialog), Qt::Key_Down);
  press(dialog, Qt::Key_F2);
}

}  // namespace

ManualTour::ManualTour(const std::string& folder, std::ostream& narration)
    : GuidedTour(folder, narration), folder_(QString::fromStdString(folder)) {}

void ManualTour::save(const QImage& image, const QString& name) {
  if (!image.save(QDir(folder_).filePath(name + QStringLiteral(".png")))) saved_ = false;
}

void ManualTour::picture(const char* window, const QString& name) {
  then(window, [=, this](QWidget& shown) { save(framed(shown), name); });
}

void ManualTour::upperPart(const QString& name, int lines) {
  then(mainDialog, [=, this](QWidget& dialog) {
    const QAbstractItemView& view = grid(dialog);
    const QPoint top = view.viewport()->mapTo(&dialog, QPoint());
    const int lineHeight = view.sizeHintForRow(0);
    QPixmap part = dialog.grab(QRect(0, 0, dialog.width(), top.y() + lines * lineHeight));
    QPainter painter(&part);
    painter.setPen(frameColour);
    painter.drawRect(part.rect().adjusted(0, 0, -1, -1));
    painter.end();
    save(part.toImage(), name);
  });
}

void ManualTour::press(const char* window, const char* button) {
  then(window, [=](QWidget& shown) { clickButton(shown, button); });
}

void ManualTour::choose(const char* combo, int entry) {
  then(mainDialog, [=](QWidget& dialog) { chooseEntry(dialog, combo, entry); });
}

void ManualTour::plan(QWidget&) {
  picture(mainDialog, QStringLiteral("dialog"));
  planViews();
  planEditing();
  planBookingCircles();
  press(mainDialog, "cmdSonderkreise");
  picture(specialRanges, QStringLiteral("sonderkreise"));
  press(specialRanges, "cmdCancel");
  planSaving();
  planHints();
  press(mainDialog, "cmdCancel");
}

void ManualTour::planViews() {
  upperPart(QStringLiteral("haken"), 7);
  choose("cboBuchungskreis", 5);
  upperPart(QStringLiteral("filter"), 8);
  choose("cboBuchungskreis", 0);
  choose("cboUser", 1);
  upperPart(QStringLiteral("benutzer"), 11);
  choose("cboBuchungskreis", 4);
  upperPart(QStringLiteral("keine-zuordnung"), 6);
  choose("cboBuchungskreis", 0);
  choose("cboUser", 0);
}

void ManualTour::planEditing() {
  then(mainDialog, [](QWidget& dialog) { editLine(dialog, 2); });
  upperPart(QStringLiteral("zelle"), 7);
  then(mainDialog, [](QWidget& dialog) { app::press(dialog, Qt::Key_Escape); });
  press(mainDialog, "cmdAuto");
  picture(box, QStringLiteral("automatisch"));
  press(box, "no");
}

void ManualTour::planBookingCircles() {
  press(mainDialog, "cmdBuchungskreise");
  picture(circles, QStringLiteral("buchungskreise"));
  press(circles, "cmdNeu");
  then(circle, [](QWidget& editor) { type(editor, QStringLiteral("Werkstatt")); });
  picture(circle, QStringLiteral("buchungskreis-neu"));
  press(circle, "cmdCancel");
  then(circles, [](QWidget& window) {
    auto* list = window.findChild<QAbstractItemView*>(QStringLiteral("lstBuchungskreise"));
    if (list == nullptr) throw Error::objectNotSet();
    for (int i = 0; i < 3; ++i) pressKey(*list, Qt::Key_Down);
    clickButton(window, "cmdEntfernen");
  });
  picture(box, QStringLiteral("buchungskreis-entfernen"));
  press(box, "no");
  press(circles, "cmdSchliessen");
}

void ManualTour::planSaving() {
  then(mainDialog, [](QWidget& dialog) {
    editLine(dialog, 2);
    app::press(dialog, Qt::Key_Tab);
    app::press(dialog, Qt::Key_Tab);
    type(dialog, QStringLiteral("1260000"));
    app::press(dialog, Qt::Key_Return);
    app::press(dialog, Qt::Key_Escape);
    clickButton(dialog, "cmdOK");
  });
  picture(box, QStringLiteral("speichern"));
  press(box, "yes");
  picture(box, QStringLiteral("meldung"));
  press(box, "ok");
  upperPart(QStringLiteral("meldung-zelle"), 5);
  then(mainDialog, [](QWidget& dialog) { app::press(dialog, Qt::Key_Escape); });
}

// The value that was changed before has its mark.
void ManualTour::planHints() {
  then(mainDialog, [](QWidget& dialog) {
    editLine(dialog, 4);
    type(dialog, QStringLiteral("2265000"));
  });
  upperPart(QStringLiteral("hinweise"), 8);
  then(mainDialog, [](QWidget& dialog) {
    app::press(dialog, Qt::Key_Escape);
    Q_EMIT grid(dialog).findChild<QShortcut*>()->activated();
    type(dialog, QStringLiteral("ang"));
  });
  upperPart(QStringLiteral("suchen"), 11);
  then(mainDialog, [](QWidget& dialog) { app::press(dialog, Qt::Key_Escape); });
}

void ManualTourOfOptions::plan(QWidget&) {
  press(mainDialog, "cmdOptionen");
  picture(options, QStringLiteral("einstellungen"));
  press(options, "cmdCancel");
  press(mainDialog, "cmdCancel");
}

}  // namespace vexnumkr::app

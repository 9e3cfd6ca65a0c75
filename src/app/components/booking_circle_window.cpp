#include "app/components/booking_circle_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include <vexnumkr/error.h>
#include <vexnumkr/message_box.h>

#include "app/components/booking_circle_editor.h"

namespace vexnumkr::app {
namespace {

constexpr int lineMargins = 8;
// About what the window system puts around a window.
constexpr QSize windowFrame{16, 40};
constexpr std::int32_t exclamation = 48;

enum Column { numberColumn, descriptionColumn, activeColumn };

// Keeps a number at the right edge of its column clear of the next column.
const QString edge(2, QChar::Nbsp);

/// Shows numbers as they are, without the dots of a large amount.
class NumberDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& value, const QLocale&) const override {
    return value.toString() + edge;
  }
};

QString joined(const std::vector<std::string>& keys) {
  QStringList list;
  for (const std::string& key : keys) list << QString::fromStdString(key);
  return list.join(QStringLiteral(", "));
}

QPushButton* button(const char* name, const QString& caption, QBoxLayout* layout) {
  auto* made = new QPushButton(caption);
  made->setObjectName(QLatin1String(name));
  layout->addWidget(made);
  return made;
}

}  // namespace

BookingCircleWindow::BookingCircleWindow(BookingCircles circles, bool multiSelect, QWidget* parent)
    : QDialog(parent), circles_(std::move(circles)) {
  build(multiSelect);
  connectControls();
  refresh();
  showCircles(0);
}

void BookingCircleWindow::build(bool multiSelect) {
  setObjectName(QStringLiteral("frmBuchungskreise"));
  setWindowTitle(QStringLiteral("Buchungskreise"));
  // Looks like the window it is opened from.
  if (parentWidget() != nullptr) setFont(parentWidget()->font());

  list_ = new QTreeWidget(this);
  list_->setObjectName(QStringLiteral("lstBuchungskreise"));
  list_->setAccessibleName(QStringLiteral("Buchungskreise"));
  list_->setItemDelegateForColumn(numberColumn, new NumberDelegate(list_));
  list_->setHeaderLabels({QStringLiteral("Nummer") + edge, QStringLiteral("Beschreibung"),
                          QStringLiteral("Aktive Belegarten")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAlternatingRowColors(true);
  list_->setAllColumnsShowFocus(true);
  list_->setSelectionMode(multiSelect ? QAbstractItemView::ExtendedSelection
                                      : QAbstractItemView::SingleSelection);
  list_->header()->setStretchLastSection(true);
  list_->headerItem()->setTextAlignment(numberColumn, Qt::AlignRight | Qt::AlignVCenter);

  auto* label = new QLabel(QStringLiteral("&Buchungskreise:"), this);
  label->setObjectName(QStringLiteral("lblBuchungskreise"));
  label->setBuddy(list_);
  hint_ = new QLabel(this);
  hint_->setObjectName(QStringLiteral("lblHinweis"));
  hint_->setWordWrap(true);

  auto* buttons = new QVBoxLayout;
  add_ = button("cmdNeu", QStringLiteral("&Neu …"), buttons);
  rename_ = button("cmdUmbenennen", QStringLiteral("&Umbenennen …"), buttons);
  remove_ = button("cmdEntfernen", QStringLiteral("&Entfernen"), buttons);
  buttons->addStretch();
  close_ = button("cmdSchliessen", QStringLiteral("&Schließen"), buttons);

  auto* row = new QHBoxLayout;
  row->addWidget(list_, 1);
  row->addLayout(buttons);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addLayout(row);
  layout->addWidget(hint_);
  const QSize wanted(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 24);
  resize(wanted.boundedTo(screen()->availableGeometry().size() - windowFrame));
  list_->setFocus();
}

void BookingCircleWindow::connectControls() {
  add_->setToolTip(QStringLiteral("Legt einen Buchungskreis an (Einfg)."));
  rename_->setToolTip(QStringLiteral("Ändert die Beschreibung (F2)."));
  remove_->setToolTip(QStringLiteral("Entfernt den Buchungskreis (Entf)."));
  for (QPushButton* each : {add_, rename_, remove_}) each->setAutoDefault(false);
  close_->setDefault(true);

  connect(add_, &QPushButton::clicked, this, &BookingCircleWindow::addCircle);
  connect(rename_, &QPushButton::clicked, this, &BookingCircleWindow::renameCircle);
  connect(remove_, &QPushButton::clicked, this, &BookingCircleWindow::removeCircles);
  connect(close_, &QPushButton::clicked, this, &QDialog::accept);
  connect(list_, &QTreeWidget::itemSelectionChanged, this, &BookingCircleWindow::enableButtons);
  connect(list_, &QTreeWidget::itemDoubleClicked, this, &BookingCircleWindow::renameCircle);

  const auto shortcut = [this](int key, QPushButton* target) {
    connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, target,
            &QPushButton::click);
  };
  shortcut(Qt::Key_Insert, add_);
  shortcut(Qt::Key_F2, rename_);
  shortcut(Qt::Key_Delete, remove_);
}

void BookingCircleWindow::refresh() { present_ = circles_.read(); }

void BookingCircleWindow::showCircles(std::int32_t current) {
  list_->clear();
  const QSize lineSize(0, fontMetrics().height() + lineMargins);
  for (const BookingCircle& circle : present_) {
    auto* item = new QTreeWidgetItem(list_);
    item->setData(numberColumn, Qt::DisplayRole, circle.number);
    item->setTextAlignment(numberColumn, Qt::AlignRight | Qt::AlignVCenter);
    item->setText(descriptionColumn, QString::fromStdString(circle.description));
    item->setText(activeColumn, joined(circles_.activeKeys(circle.number)));
    item->setToolTip(activeColumn, item->text(activeColumn));
    item->setSizeHint(numberColumn, lineSize);
  }
  if (!present_.empty()) list_->setCurrentItem(list_->topLevelItem(lineFor(current)));
  hint_->setText(
      present_.empty()
          ? QStringLiteral("Es gibt noch keinen Buchungskreis. Mit \"Neu …\" legen Sie einen an.")
          : QStringLiteral(
                "Die Änderungen werden erst mit dem Dialog \"Nummernkreise\" gespeichert."));
  fitColumns();
  enableButtons();
}

void BookingCircleWindow::fitColumns() {
  const int gap = 2 * fontMetrics().averageCharWidth();
  for (const int column : {numberColumn, descriptionColumn}) {
    list_->resizeColumnToContents(column);
    list_->setColumnWidth(column, list_->columnWidth(column) + gap);
  }
}

int BookingCircleWindow::lineFor(std::int32_t number) const {
  const auto found =
      std::find_if(present_.begin(), present_.end(),
                   [&](const BookingCircle& circle) { return circle.number >= number; });
  const auto line = found == present_.end() ? present_.end() - 1 : found;
  return static_cast<int>(line - present_.begin());
}

std::vector<std::int32_t> BookingCircleWindow::selectedNumbers() const {
  std::vector<std::int32_t> numbers;
  for (const QTreeWidgetItem* item : list_->selectedItems())
    numbers.push_back(item->data(numberColumn, Qt::DisplayRole).toInt());
  return numbers;
}

void BookingCircleWindow::enableButtons() {
  const std::size_t count = selectedNumbers().size();
  rename_->setEnabled(count == 1);
  remove_->setEnabled(count >= 1);
}

void BookingCircleWindow::addCircle() {
  BookingCircleEditor editor(present_, this);
  if (editor.exec() != QDialog::Accepted) return;
  const BookingCircle circle = editor.entered();
  apply([&] { circles_.add(circle); }, circle.number);
}

void BookingCircleWindow::renameCircle() {
  const std::vector<std::int32_t> selected = selectedNumbers();
  if (selected.size() != 1) return;
  BookingCircleEditor editor(listed(selected.front()), present_, this);
  if (editor.exec() != QDialog::Accepted) return;
  const BookingCircle renamed = editor.entered();
  apply([&] { circles_.rename(renamed.number, renamed.description); }, renamed.number);
}

const BookingCircle& BookingCircleWindow::listed(std::int32_t number) const {
  return *std::find_if(present_.begin(), present_.end(),
                       [&](const BookingCircle& each) { return each.number == number; });
}

bool BookingCircleWindow::confirmRemoval(std::int32_t number) {
  const std::vector<std::string> active = circles_.activeKeys(number);
  if (active.empty()) return true;
  const QString prompt =
      QStringLiteral(
          "Im Buchungskreis %1 (%2) sind noch Nummernkreise aktiv: %3.\n"
          "Soll er trotzdem entfernt werden?")
          .arg(QString::number(number), QString::fromStdString(listed(number).description),
               joined(active));
  return confirm(QStringLiteral("Buchungskreis entfernen"), prompt);
}

// A box of its own: in those of the component a question with these answers has no way out.
bool BookingCircleWindow::confirm(const QString& title, const QString& prompt) {
  QMessageBox box(QMessageBox::Question, title, prompt, QMessageBox::NoButton, this);
  box.setObjectName(QStringLiteral("msgBox"));
  box.setFont(font());
  box.setTextFormat(Qt::PlainText);
  const auto answer = [&](const char* name, const QString& caption, QMessageBox::ButtonRole role,
                          Qt::Key key) {
    QPushButton* made = box.addButton(caption, role);
    made->setObjectName(QLatin1String(name));
    made->setShortcut(QKeySequence(Qt::ALT | key));
    return made;
  };
  const QPushButton* yes = answer("yes", QStringLiteral("Ja"), QMessageBox::YesRole, Qt::Key_J);
  QPushButton* no = answer("no", QStringLiteral("Nein"), QMessageBox::NoRole, Qt::Key_N);
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes;
}

void BookingCircleWindow::removeCircles() {
  for (const std::int32_t number : selectedNumbers()) {
    apply(
        [&] {
          if (confirmRemoval(number)) circles_.remove(number);
        },
        number);
  }
}

void BookingCircleWindow::apply(const std::function<void()>& change, std::int32_t current) {
  try {
    change();
    refresh();
    showCircles(current);
  } catch (const Error& error) {
    showMessageBox(error.description(), exclamation, "Fehler " + std::to_string(error.number()));
  }
}

}  // namespace vexnumkr::app

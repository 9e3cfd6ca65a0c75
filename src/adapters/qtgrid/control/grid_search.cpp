#include "adapters/qtgrid/control/grid_search.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

namespace vexnumkr {
namespace {

constexpr int fieldColumns = 22;
constexpr int margin = 4;

}  // namespace

GridSearch::GridSearch(GridView& view, std::function<void(int item)> choose)
    : QFrame(view.parentWidget()), view_(view), choose_(std::move(choose)) {
  setObjectName(QStringLiteral("search"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  field_.setObjectName(QStringLiteral("searchField"));
  field_.setAccessibleName(QStringLiteral("In der Liste suchen"));
  field_.setPlaceholderText(QStringLiteral("Suchen"));
  field_.setClearButtonEnabled(true);
  field_.installEventFilter(this);
  result_.setObjectName(QStringLiteral("searchResult"));
  auto* row = new QHBoxLayout(this);  // owned by this
  row->setContentsMargins(margin, margin, margin, margin);
  row->addWidget(&field_);
  row->addWidget(&result_);
  view.installEventFilter(this);
  connect(&field_, &QLineEdit::textChanged, this, [this] {
    find(view_.currentIndex().isValid() ? GridModel::itemOf(view_.currentIndex()) : 0, +1);
  });
  hide();
}

void GridSearch::open() {
  setFont(view_.font());
  field_.setMinimumWidth(fontMetrics().averageCharWidth() * fieldColumns);
  tell();
  show();
  raise();
  field_.selectAll();
  field_.setFocus(Qt::ShortcutFocusReason);
}

void GridSearch::place() {
  adjustSize();
  const QRect list = view_.viewport()->geometry().translated(view_.pos());
  move(std::max(list.right() - width() + 1, list.left()), list.top());
}

void GridSearch::leave() {
  view_.setFocus(Qt::OtherFocusReason);
  hide();
}

bool GridSearch::matches(int item) const {
  return view_.gridModel().indexOf(item).data().toString().contains(field_.text(),
                                                                    Qt::CaseInsensitive);
}

// From an item on, itself included, to the first match.
void GridSearch::find(int from, int step) {
  const int count = view_.gridModel().items().count();
  for (int i = 0; i < count && !field_.text().isEmpty(); ++i) {
    const int item = ((from + i * step) % count + count) % count;
    if (!matches(item)) continue;
    choose_(item);
    view_.revealFound(item, height());
    break;
  }
  tell();
}

void GridSearch::tell() {
  int found = 0;
  int shown = 0;
  for (int item = 0; item < view_.gridModel().items().count(); ++item) {
    if (!matches(item)) continue;
    ++found;
    if (view_.currentIndex() == view_.gridModel().indexOf(item)) shown = found;
  }
  QString text;
  if (!field_.text().isEmpty() && found == 0) text = QStringLiteral("nichts gefunden");
  if (!field_.text().isEmpty() && found > 0)
    text = QStringLiteral("%1 von %2").arg(shown).arg(found);
  result_.setText(text);
  result_.setVisible(!text.isEmpty());
  field_.setAccessibleDescription(text);
  place();
}

bool GridSearch::keyPressed(const QKeyEvent& key) {
  const int current = view_.currentIndex().isValid() ? GridModel::itemOf(view_.currentIndex()) : -1;
  const bool back = key.modifiers().testFlag(Qt::ShiftModifier);
  switch (key.key()) {
    case Qt::Key_Escape:
      leave();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F3:
      back ? find(current - 1, -1) : find(current + 1, +1);
      return true;
    case Qt::Key_Up:
      find(current - 1, -1);
      return true;
    case Qt::Key_Down:
      find(current + 1, +1);
      return true;
    default:
      return false;
  }
}

bool GridSearch::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == &view_) {
    const bool moves = event->type() == QEvent::Resize || event->type() == QEvent::Move;
    if (moves && isVisible()) place();
    return false;
  }
  if (event->type() == QEvent::KeyPress) return keyPressed(*static_cast<QKeyEvent*>(event));
  // A menu of the field, or another program in front, is no end of the search.
  const bool leaves = event->type() == QEvent::FocusOut &&
                      static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason &&
                      static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
  if (leaves) hide();
  return false;
}

}  // namespace vexnumkr

#include "adapters/qtgrid/edit/grid_edit.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "adapters/qt/guarded.h"
#include "adapters/qt/key_codes.h"
#include "adapters/qt/text.h"

namespace vexnumkr {

GridEdit::GridEdit(GridView& view)
    : view_(view),
      editor_(new CellEditor(view.viewport())),
      bubble_(new EntryBubble(view.viewport())) {
  editor_->listen(this);
  QObject::connect(editor_, &QLineEdit::textChanged, bubble_, [this] { describeEntry(); });
}

GridEdit::~GridEdit() {
  if (bubble_) bubble_->deleteLater();
  if (!editor_) return;
  editor_->disconnect(bubble_);
  editor_->listen(nullptr);
  editor_->hide();
  editor_->deleteLater();  // it may be the sender of the key that leads here
}

void GridEdit::useFont(const QFont& font) { editor_->setFont(font); }

std::optional<GridCell> GridEdit::cell() const {
  if (!session_) return std::nullopt;
  return GridCell{session_->item, session_->column};
}

bool GridEdit::isAt(int item, int column) const {
  return session_ && session_->item == item && session_->column == column;
}

void GridEdit::open(int item, int column) {
  GridModel& model = view_.gridModel();
  const int section = model.sectionOf(column);
  const bool hadFocus = editor_->hasFocus();
  editor_->setAlignment(model.alignmentOf(section));
  editor_->useSelectionOf(view_.palette());
  editor_->setAccessibleName(view_.pathOf(item, section));
  editor_->start(toQt(model.items().text(item, column)), limitOf(column));
  session_ = Session{item, static_cast<std::int16_t>(column), editor_->text()};
  ++serial_;
  layOut();
  editor_->show();
  view_.setFocusProxy(editor_);  // a focus given to the grid belongs to its editor
  editor_->selectAll();
  takeFocus();
  if (hadFocus) announceFocus();
  describeEntry();
  view_.viewport()->update();
}

// Screen readers read the description when they come to the editor.
void GridEdit::describeEntry() {
  if (!session_ || !editor_ || !bubble_) return;
  EntryNote note;
  const Session session = *session_;
  const std::string text = editor_->text().toStdString();
  if (events_ != nullptr)
    guarded("CEChange", [&] { events_->CEChange(session.item, session.column, text, note); });
  if (!session_) return;
  const QString said = toQt(note.text);
  editor_->tell(said, note.refuses);
  bubble_->setFont(view_.font());
  bubble_->say(said, note.refuses, editor_->geometry(), view_.involvedArea());
  view_.viewport()->update();
}

int GridEdit::limitOf(int column) const {
  const auto found = limits_.find(static_cast<std::int16_t>(column));
  return found == limits_.end() ? 0 : found->second;
}

// Going from cell to cell, the focus stays in the one editor: nobody would notice.
void GridEdit::announceFocus() {
  QAccessibleEvent event(editor_.data(), QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

void GridEdit::takeFocus() { editor_->setFocus(Qt::OtherFocusReason); }

void GridEdit::layOut() {
  if (!session_ || !editor_ || layingOut_) return;
  const QScopedValueRollback<bool> guard(layingOut_, true);
  const QRect area = view_.editorArea(session_->item, session_->column);
  if (area.isEmpty()) {
    editor_->move(0, -2 * editor_->height());  // out of sight, yet with the focus
  } else {
    editor_->setGeometry(area);
  }
  if (bubble_ && !bubble_->isHidden()) bubble_->follow(editor_->geometry(), view_.involvedArea());
}

void GridEdit::reveal() {
  if (session_) view_.reveal(session_->item, session_->column);
}

void GridEdit::enter(const QString& text) {
  editor_->selectAll();
  editor_->insert(text);
}

bool GridEdit::end(bool keepText) {
  if (!session_) return true;
  if (ending_ && keepText) return false;
  if (keepText && editor_->text() != session_->openingText) return offerText();
  close();
  return true;
}

bool GridEdit::offerText() {
  const QScopedValueRollback<bool> guard(ending_, true);
  const std::uint32_t serial = serial_;
  const Session session = *session_;
  bool cancel = false;
  std::string text = editor_->text().toStdString();
  const bool returned = events_ == nullptr || guarded("AfterEdit", [&] {
                          events_->AfterEdit(session.item, session.column, cancel, text);
                        });
  if (serial_ != serial) return !session_;
  if (cancel && returned) {
    refuse(toQt(text));
    return false;
  }
  view_.gridModel().setText(session.item, session.column, text);
  close();
  return true;
}

void GridEdit::refuse(const QString& text) {
  if (editor_->text() != text) editor_->setText(text);
  editor_->selectAll();
  takeFocus();
}

void GridEdit::close() {
  session_.reset();
  ++serial_;
  view_.setFocusProxy(nullptr);
  if (bubble_) bubble_->hide();
  if (events_ != nullptr) guarded("CEClosed", [&] { events_->CEClosed(); });
  // A key that ends the edit of one cell may open that of the next: until its handler is through,
  // the focus waits, lest screen readers read the row and the grid in between.
  if (!handlingKey_) leave();
}

void GridEdit::leave() {
  const bool hadFocus = view_.window()->focusWidget() == editor_;
  if (hadFocus) view_.setFocus(Qt::OtherFocusReason);  // before hiding, which would pass it on
  editor_->hide();
  view_.viewport()->update();
}

bool GridEdit::editorKeyPressed(const QKeyEvent& event) {
  if (!session_ || ending_) return true;
  const std::uint32_t serial = serial_;
  const Session session = *session_;
  std::int16_t key = keyCode(event);
  const std::int16_t shift = keyShift(event);
  if (events_ != nullptr) {
    const QScopedValueRollback<bool> handling(handlingKey_, true);
    guarded("CEKeyDown", [&] { events_->CEKeyDown(key, shift, session.item, session.column); });
  }
  if (!session_ && editor_) leave();
  if (serial_ != serial || key == 0) return true;
  return endByKey(key, shift);
}

// The keys that mean the edit and not its text, where the handler has left them alone.
bool GridEdit::endByKey(std::int16_t key, std::int16_t shift) {
  switch (key) {
    case key_code::enter:
      end(true);
      return true;
    case key_code::escape:
      end(false);
      return true;
    case key_code::tab:
      return true;
    case key_code::left:
    case key_code::right:
      return shift == key_shift::ctrl;
    default:
      return false;
  }
}

}  // namespace vexnumkr

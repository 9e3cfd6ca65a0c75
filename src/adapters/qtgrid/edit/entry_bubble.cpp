#include "adapters/qtgrid/edit/entry_bubble.h"

#include <QPainter>
#include <algorithm>

#include "adapters/qt/device_pixels.h"
#include "adapters/qt/tool_tips.h"
#include "adapters/qtgrid/view/grid_colours.h"

namespace vexnumkr {
namespace {

constexpr int textMargin = 5;
constexpr int distance = 2;

}  // namespace

EntryBubble::EntryBubble(QWidget* viewport) : QLabel(viewport) {
  setObjectName(QStringLiteral("entryNote"));
  setTextFormat(Qt::PlainText);
  setMargin(textMargin);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  hide();
}

void EntryBubble::say(const QString& text, bool refuses, const QRect& cell) {
  if (text.isEmpty()) return hide();
  refuses_ = refuses;
  setText(text);
  // A label that may wrap asks for a width of its own, so it is asked first what it wants without.
  const int most = std::min(fontMetrics().averageCharWidth() * toolTipColumns,
                            parentWidget()->width() - 2 * distance);
  setWordWrap(false);
  const bool wraps = sizeHint().width() > most;
  setWordWrap(wraps);
  const int width = wraps ? most : sizeHint().width();
  resize(width, wraps ? heightForWidth(width) : sizeHint().height());
  follow(cell);
  raise();
  show();
}

void EntryBubble::follow(const QRect& cell) {
  // What is read next stands below, unless the note would be cut off there.
  const QRect room = parentWidget()->rect();
  const int below = cell.bottom() + 1 + distance;
  const int above = cell.top() - distance - height();
  const bool fitsBelow = below + height() <= room.height() || above < 0;
  const int rightmost = std::max(room.right() - width() - distance, 0);
  move(std::clamp(cell.left(), 0, rightmost), fitsBelow ? below : above);
}

void EntryBubble::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  QPainter painter(this);
  const QColor usual = palette().color(QPalette::ToolTipText);
  paintFrame(painter, rect(), thinLine(painter), refuses_ ? warningColour(palette()) : usual);
}

}  // namespace vexnumkr

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

void EntryBubble::say(const QString& text, bool refuses, const QRect& cell, const QRect& spared) {
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
  follow(cell, spared);
  raise();
  show();
}

void EntryBubble::follow(const QRect& cell, const QRect& spared) {
  const int rightmost = std::max(parentWidget()->rect().right() - width() - distance, 0);
  move(std::clamp(cell.left(), 0, rightmost), topBeside(cell, spared));
}

// A note that would be cut off everywhere stands below, whatever it covers.
int EntryBubble::topBeside(const QRect& cell, const QRect& spared) const {
  const auto below = [](const QRect& area) { return area.bottom() + 1 + distance; };
  const auto above = [this](const QRect& area) { return area.top() - distance - height(); };
  const auto fits = [this](int top) {
    return top >= 0 && top + height() <= parentWidget()->height();
  };
  const auto covers = [this](int top, const QRect& area) {
    return !area.isEmpty() && top <= area.bottom() && area.top() < top + height();
  };
  for (const int top : {below(cell), above(cell), below(spared), above(spared)})
    if (fits(top) && !covers(top, cell) && !covers(top, spared)) return top;
  return fits(below(cell)) || !fits(above(cell)) ? below(cell) : above(cell);
}

void EntryBubble::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  QPainter painter(this);
  const QColor usual = palette().color(QPalette::ToolTipText);
  paintFrame(painter, rect(), thinLine(painter), refuses_ ? warningColour(palette()) : usual);
}

}  // namespace vexnumkr

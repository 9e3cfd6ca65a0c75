// Tool tips whose texts are plain.
#pragma once

#include <QFont>
#include <QObject>
#include <QString>

class QHelpEvent;
class QRect;
class QWidget;

namespace vexnumkr {

/// About how many characters a line of a tool tip has at most.
inline constexpr int toolTipColumns = 60;

/// The mark-up that shows `text` in `font` as it stands: its line breaks kept, long lines broken,
/// nothing in it taken for mark-up. Empty for an empty text.
QString toolTipMarkup(const QString& text, const QFont& font);

/// The text that toolTipMarkup has made `markup` of, with line feeds for its line breaks.
QString toolTipText(const QString& markup);

/// Shows a tip of `widget` where the mouse rests, or hides the one that is shown for an empty text.
/// It stays while the mouse is in `area`, or in the widget where that is empty.
void showToolTip(const QHelpEvent& event, const QString& text, QWidget& widget, const QRect& area);

/// A text that is shown where the widget has no tool tip, and told to assistive technology.
void giveHint(QWidget& widget, const QString& hint);

/// Shows the tool tips of the widgets that it is installed on as event filter.
class PlainToolTips final : public QObject {
 public:
  bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace vexnumkr

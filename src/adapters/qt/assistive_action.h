// Whether assistive technology may act on a widget now.
#pragma once

#include <QEvent>

class QWidget;

namespace vexnumkr {

/// Sent to a widget ahead of an action of assistive technology, which is a call and no event of the
/// window system. Whoever filters this event out and ignores it keeps the action from the widget.
QEvent::Type assistiveActionEvent();

/// Whether the user could do the same with mouse and keys: no other window is modal, and nobody
/// keeps input from the widget.
bool takesAssistiveActions(QWidget& widget);

}  // namespace vexnumkr

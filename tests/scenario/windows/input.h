// What a user does with mouse and keyboard, as the window system reports it.
#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

#include "scenario/language/chord.h"

class QWidget;

namespace vexnumkr::scenario {

/// Presses and releases a mouse button at `position` of `widget`. Nobody who is shielded by a modal
/// window is reached. Errors: CannotDo where the position lies outside of the widget's window.
void clickAt(QWidget& widget, const QPoint& position, Qt::MouseButton button = Qt::LeftButton);

/// Presses and releases a key in the window that has the focus. Error: CannotDo when none has it.
void pressKey(const Chord& chord);

/// Types a text, key by key.
void typeText(const QString& text);

}  // namespace vexnumkr::scenario

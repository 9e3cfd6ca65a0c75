// What a user does with mouse and keyboard, for programs that work dialogs.
#pragma once

#include <Qt>

class QWidget;

namespace vexnumkr::app {

/// A key press and release to `target`, which gets the focus first.
void pressKey(QWidget& target, Qt::Key key);

/// Chooses the entry `index` of the drop-down list `name` in `window` by arrow keys.
void chooseEntry(QWidget& window, const char* name, int index);

/// Clicks the button `name` in `window`.
void clickButton(QWidget& window, const char* name);

/// Whether `window` shows a control of that name.
bool shows(const QWidget& window, const char* name);

/// Makes the first line of the first group of the tree `name` current by arrow keys, and opens its
/// first value for editing.
void editFirstRange(QWidget& window, const char* name);

/// A key press and release to the widget of `window` that has the focus.
void pressKeyInFocus(QWidget& window, Qt::Key key);

/// Makes the last line of the first group of the tree `name` current by arrow keys, and presses the
/// space bar on it.
void tickLastOfFirstGroup(QWidget& window, const char* name);

}  // namespace vexnumkr::app

// The forms toolkit on Qt Widgets.
//
// Needs a QApplication. A modal form or message box is owned by the modal window that is active
// when it is shown, and has no owner where there is none.
//
// For tools that look at the widgets: a form's object name is its name, and its property `formName`
// too; a control's object name is its name, members of a control array have their index in brackets
// behind it ("optOnNewAN(0)"). Controls carry the properties `controlOrder` (their place in the
// form's control order, from 0) and `controlKind` (the name of their ControlKind). A message box is
// called "msgBox", its buttons "ok", "cancel", "yes" and "no"; its property `buttons` is the style
// number and `prompt` the text as it was handed over.
#pragma once

#include <QString>
#include <memory>

#include "platform/forms.h"

namespace vexnumkr {

/// What users make of the windows is kept in a file of that name; nothing is for an empty one. The
/// forms end before the toolkit does.
std::unique_ptr<FormsToolkit> makeQtFormsToolkit(const QString& memoryFile = {});

/// Where the user's windows are remembered; empty on platforms that show nobody any.
QString usersMemoryFile();

}  // namespace vexnumkr

// Switching the fonts of a dialog.
#pragma once

#include <string>

#include "hosting/session.h"
#include "platform/forms.h"

namespace vexnumkr::basAllgemein {

/// Gives the form and all its controls a font of that name; a tree grid's headers and editor too.
/// For application 1, `cmdBuchungskreise` is set in bold "Arial Narrow" of 10 points instead.
/// Failures are reported.
void RefreshFont(Session& session, Form& form, const std::string& fontName);

}  // namespace vexnumkr::basAllgemein

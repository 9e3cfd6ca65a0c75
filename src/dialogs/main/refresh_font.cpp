#include "dialogs/main/refresh_font.h"

#include "platform/tree_grid.h"

namespace vexnumkr::basAllgemein {
namespace {

// In that host's font "Buchungskreise" is wider than its button.
bool hasNarrowCaption(const Session& session, const Control& control) {
  return session.LngApplication() == 1 && control.Name() == "cmdBuchungskreise";
}

void switchFont(Control& control, const Font& font) {
  control.SetFont(font);
  if (auto* grid = dynamic_cast<TreeGrid*>(&control)) {
    grid->ColHeaderFont(font);
    grid->ItemEditFont(font);
    grid->RowHeaderFont(font);
  }
}

}  // namespace

void RefreshFont(Session& session, Form& form, const std::string& fontName) {
  reportingFailures(session.reporter(), {generalModule, "RefreshFont"}, [&] {
    const Font font{fontName};
    form.SetFont(font);
    for (Control* control : form.Controls()) {
      if (hasNarrowCaption(session, *control))
        control->SetFont({"Arial Narrow", 10, true});
      else
        switchFont(*control, font);
    }
  });
}

}  // namespace vexnumkr::basAllgemein

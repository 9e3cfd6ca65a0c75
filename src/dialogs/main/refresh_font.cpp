#include "dialogs/main/refresh_font.h"

#include "hosting/reporting.h"

namespace vexnumkr::basAllgemein {
namespace {

bool hasNarrowCaption(const HostContext& context, const Control& control) {
  return context.LngApplication() == 1 && control.Name() == "cmdBuchungskreise";
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

void RefreshFont(HostContext& context, Form& form, const std::string& fontName) {
  reportingFailures(context, {moduleName, "RefreshFont"}, [&] {
    const Font font{fontName};
    form.SetFont(font);
    for (Control* control : form.Controls()) {
      if (hasNarrowCaption(context, *control))
        control->SetFont({"Arial Narrow", 10, true});
      else
        switchFont(*control, font);
    }
  });
}

}  // namespace vexnumkr::basAllgemein

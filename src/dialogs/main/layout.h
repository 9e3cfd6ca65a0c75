// How the main dialog looks at design time, and how it follows its window's size.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/forms.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// The description of frmNummernkreise with all its controls in control order.
FormDescription mainDialogDescription();

/// Positions (in twips) recorded when the dialog loads; moves and stretches the controls with the
/// window. Of a change in width, "Aktuell", "Ende" and "Maske" take a quarter each.
class MainDialogLayout {
 public:
  explicit MainDialogLayout(Form& form);

  /// Places everything for the form's present inner size.
  void apply();

 private:
  void move(const char* name, std::int32_t dW, std::int32_t dH);
  Rect recorded(const char* name) const;

  struct Recorded {
    const char* name;
    Rect position;
  };

  Form& form_;
  std::int32_t width_;
  std::int32_t height_;
  std::vector<Recorded> positions_;
  double valueWidth_;
};

}  // namespace vexnumkr

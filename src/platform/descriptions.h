// Makers of the control descriptions that several dialogs need.
#pragma once

#include <string>

#include "platform/forms.h"

namespace vexnumkr {

inline ControlDescription describeControl(ControlKind kind, const std::string& name,
                                          const Rect& position) {
  ControlDescription control;
  control.kind = kind;
  control.name = name;
  control.position = position;
  return control;
}

inline ControlDescription describeLabel(const std::string& name, const std::string& caption,
                                        const Rect& position) {
  ControlDescription control = describeControl(ControlKind::Label, name, position);
  control.caption = caption;
  return control;
}

inline ControlDescription describeButton(const std::string& name, const std::string& caption,
                                         const Rect& position, int tabIndex,
                                         ButtonRole role = ButtonRole::None) {
  ControlDescription control = describeControl(ControlKind::Button, name, position);
  control.caption = caption;
  control.tabIndex = tabIndex;
  control.role = role;
  return control;
}

}  // namespace vexnumkr

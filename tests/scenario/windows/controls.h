// The controls of a form, by name.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "scenario/windows/failure.h"

namespace vexnumkr::scenario {

/// All controls of `form` in control order, those that are never shown among them.
std::vector<QWidget*> controlsOf(const QWidget& form);

/// The control with that name; members of an array are named "name(0)". Error: CannotDo.
QWidget& controlOf(const QWidget& form, const std::string& name);

/// The control as a widget of class Kind, which users know as `kind`. Error: CannotDo.
template <class Kind>
Kind& controlOf(const QWidget& form, const std::string& name, const char* kind) {
  auto* found = qobject_cast<Kind*>(&controlOf(form, name));
  if (found == nullptr) throw CannotDo("the control " + name + " is no " + kind);
  return *found;
}

/// Error: CannotDo where a user could not click the control, because it is hidden or disabled.
void requireUsable(const QWidget& control);

}  // namespace vexnumkr::scenario

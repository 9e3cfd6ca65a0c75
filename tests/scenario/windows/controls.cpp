#include "scenario/windows/controls.h"

#include <QVariant>
#include <algorithm>

namespace vexnumkr::scenario {
namespace {

int orderOf(const QWidget* control) { return control->property("controlOrder").toInt(); }

}  // namespace

std::vector<QWidget*> controlsOf(const QWidget& form) {
  std::vector<QWidget*> controls;
  for (QWidget* widget : form.findChildren<QWidget*>())
    if (widget->window() == &form && widget->property("controlOrder").isValid())
      controls.push_back(widget);
  std::sort(controls.begin(), controls.end(),
            [](const QWidget* a, const QWidget* b) { return orderOf(a) < orderOf(b); });
  return controls;
}

QWidget& controlOf(const QWidget& form, const std::string& name) {
  for (QWidget* control : controlsOf(form))
    if (control->objectName().toStdString() == name) return *control;
  throw CannotDo("the dialog " + form.objectName().toStdString() + " has no control " + name);
}

void requireUsable(const QWidget& control) {
  const std::string name = control.objectName().toStdString();
  if (!control.isVisible()) throw CannotDo("the control " + name + " is hidden");
  if (!control.isEnabled()) throw CannotDo("the control " + name + " is disabled");
}

}  // namespace vexnumkr::scenario

#include "support/screen_reader.h"

#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <utility>

namespace vexnumkr::test {
namespace {

// Qt takes a plain function for a listener, which has nothing else to write to.
std::vector<std::string>& lines() {
  static std::vector<std::string> heard;
  return heard;
}

// As the platform does when a screen reader is started.
void activate(bool active) {
  QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
}

std::string nameOf(const QAccessible::State& changed) {
  if (changed.checked) return "checked";
  return changed.expanded ? "expanded" : "";
}

std::string nameOf(const QAccessibleEvent& event) {
  switch (event.type()) {
    case QAccessible::Focus:
      return "focus";
    case QAccessible::NameChanged:
      return "name";
    case QAccessible::ValueChanged:
      return "value";
    case QAccessible::StateChanged:
      return nameOf(static_cast<const QAccessibleStateChangeEvent&>(event).changedStates());
    case QAccessible::TableModelChanged: {
      const auto& change = static_cast<const QAccessibleTableModelChangeEvent&>(event);
      const bool rows = change.modelChangeType() == QAccessibleTableModelChangeEvent::ModelReset;
      return rows ? "rows" : "";
    }
    default:
      return "";
  }
}

}  // namespace

ScreenReader::ScreenReader() {
  lines().clear();
  previous_ = QAccessible::installUpdateHandler(note);
  activate(true);
}

ScreenReader::~ScreenReader() {
  activate(false);
  QAccessible::installUpdateHandler(previous_);
}

std::vector<std::string> ScreenReader::heard() { return std::exchange(lines(), {}); }

void ScreenReader::note(QAccessibleEvent* event) {
  const std::string what = nameOf(*event);
  const QAccessibleInterface* about = event->accessibleInterface();
  if (what.empty() || about == nullptr) return;
  lines().push_back(what + " " + about->text(QAccessible::Name).toStdString());
}

}  // namespace vexnumkr::test

// Listens to what the application tells assistive technology, like a screen reader.
#pragma once

#include <QAccessible>
#include <string>
#include <vector>

namespace vexnumkr::test {

/// Where a screen reader's table of a grid, and the grid's view, show a column: the first column is
/// hidden, so all others have moved up, as long as none of them is hidden.
constexpr int sectionOf(int column) { return column - 1; }

/// While one of these lives, accessibility is active, and what is told is noted as lines: "focus",
/// "name", "value", "checked", "expanded" or "rows" with the name of what it is about, e.g. "focus
/// Standard". At most one lives at a time. REQUIRES: a QGuiApplication.
class ScreenReader {
 public:
  ScreenReader();
  ~ScreenReader();
  ScreenReader(const ScreenReader&) = delete;
  ScreenReader& operator=(const ScreenReader&) = delete;

  /// The lines since the last call.
  std::vector<std::string> heard();

 private:
  static void note(QAccessibleEvent* event);

  QAccessible::UpdateHandler previous_;
};

}  // namespace vexnumkr::test

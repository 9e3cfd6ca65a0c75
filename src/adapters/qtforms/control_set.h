// The controls of one form.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "adapters/qt/tool_tips.h"
#include "adapters/qtforms/controls/pending_edits.h"
#include "platform/forms.h"

class QPushButton;
class QWidget;

namespace vexnumkr::qtforms {

/// Makes and owns the controls of a form, as widgets inside its window and in its font.
class ControlSet {
 public:
  /// `window` is borrowed and outlives this. Error 91 where a control's parent is no frame of the
  /// form, or what a label names no control of it.
  ControlSet(std::vector<ControlDescription> descriptions, QWidget& window);
  ~ControlSet();
  ControlSet(const ControlSet&) = delete;
  ControlSet& operator=(const ControlSet&) = delete;

  /// In control order.
  const std::vector<Control*>& inOrder() const { return inOrder_; }
  /// Null where there is none.
  Control* find(std::string_view name, int arrayIndex) const;

  PendingEdits& edits() { return edits_; }
  /// The button that Escape presses, or null.
  QPushButton* cancelButton() const { return cancelButton_; }
  /// The widget that has the focus first: a tree grid where there is one that can have it, else the
  /// first in the tab order that can; null where there is none.
  QWidget* firstFocus() const;

 private:
  struct Entry {
    const ControlDescription* description;
    Control* control;
    QWidget* widget;
  };

  Entry& made(std::size_t index);
  Entry make(const ControlDescription& description, QWidget& parent);
  template <class Made, class... Arguments>
  Entry adopt(const ControlDescription& description, QWidget& parent, Arguments&... arguments);
  Entry makeGrid(const ControlDescription& description, QWidget& parent);
  QWidget& parentOf(const ControlDescription& description);
  void mark(const Entry& entry, std::size_t order);
  void chainTabOrder();
  void nameByLabels();

  const std::vector<ControlDescription> descriptions_;
  QWidget& window_;
  PendingEdits edits_;
  PlainToolTips toolTips_;
  std::vector<Entry> entries_;                   ///< in control order
  std::vector<std::unique_ptr<Control>> owned_;  ///< as they were made, frames before their content
  std::vector<Control*> inOrder_;
  std::vector<QWidget*> tabOrder_;
  std::vector<QWidget*> grids_;
  QPushButton* cancelButton_ = nullptr;
};

}  // namespace vexnumkr::qtforms

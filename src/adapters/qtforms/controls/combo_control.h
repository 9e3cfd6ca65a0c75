// Drop-down lists.
#pragma once

#include <QComboBox>

#include "adapters/qtforms/controls/pending_edits.h"
#include "adapters/qtforms/controls/widget_control.h"

namespace vexnumkr::qtforms {

/// A combo box whose list opens only when the form's open edits have been settled, and is then wide
/// enough for its entries, but no wider than the screen.
class DropDownList final : public QComboBox {
 public:
  using QComboBox::QComboBox;

  /// `edits` is borrowed and outlives this.
  void watch(PendingEdits& edits) { edits_ = &edits; }

  void showPopup() override;
  bool eventFilter(QObject* receiver, QEvent* event) override;

 protected:
  /// The wheel chooses only where the keys do: whoever scrolls past must not change anything.
  void wheelEvent(QWheelEvent* event) override;

 private:
  PendingEdits* edits_ = nullptr;
};

/// Settles the form's open edits before a user's choice takes place; a choice that does not take
/// place leaves the entry that was shown.
class ComboControl final : public WidgetControl<ComboBox, DropDownList> {
 public:
  /// `edits` is borrowed and outlives this.
  ComboControl(const ControlDescription& description, QWidget& parent, PendingEdits& edits);

  void Clear() override;
  void AddItem(const std::string& text) override;
  std::int32_t ListCount() const override;
  std::string List(std::int32_t index) const override;
  std::int32_t ListIndex() const override;
  void ListIndex(std::int32_t index) override;
  std::string Text() const override;
  void Text(const std::string& text) override;
  void SelectSilently(std::int32_t index) override;
  void OnClick(std::function<void()> handler) override;

 private:
  void show(int index);
  void click();
  void chosenByUser(int index);

  PendingEdits& edits_;
  std::function<void()> handler_;
  /// The entry that counts; the widget's own runs ahead of it until the open edits are settled.
  int chosen_ = -1;
};

}  // namespace vexnumkr::qtforms

// Push buttons.
#pragma once

#include <QPushButton>

#include "adapters/qt/tool_tips.h"
#include "adapters/qtforms/controls/pending_edits.h"
#include "adapters/qtforms/controls/widget_control.h"
#include "platform/hinted.h"

namespace vexnumkr::qtforms {

/// A push button that Enter presses while it has the focus; elsewhere Enter presses the default
/// button.
class PushButton final : public QPushButton {
 public:
  using QPushButton::QPushButton;

  void setAccessKey(char key);
  /// Escape is not used up by letting go of the held button while one of these is open; borrowed.
  void setEdits(const PendingEdits& edits) { edits_ = &edits; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  char accessKey_ = 0;
  const PendingEdits* edits_ = nullptr;
};

/// Settles the form's open edits before its click takes place: the cancel button drops their texts,
/// every other button keeps them.
class ButtonControl final : public WidgetControl<Button, PushButton>, public Hinted {
 public:
  /// `edits` is borrowed and outlives this.
  ButtonControl(const ControlDescription& description, QWidget& parent, PendingEdits& edits);

  void OnClick(std::function<void()> handler) override;
  void Hint(const std::string& text) override { giveHint(widget_, toQt(text)); }

 private:
  void fit() override;
  void click();

  PendingEdits& edits_;
  ButtonRole role_;
  std::function<void()> handler_;
};

}  // namespace vexnumkr::qtforms

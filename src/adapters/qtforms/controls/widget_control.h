// What the controls that stand for one Qt widget have in common.
#pragma once

#include <QWidget>
#include <string>

#include "adapters/qt/fonts.h"
#include "adapters/qt/text.h"
#include "adapters/qt/units.h"
#include "platform/forms.h"

namespace vexnumkr::qtforms {

/// Name, accessible name, place, visibility and focus policy as described.
void describeWidget(QWidget& widget, const ControlDescription& description);

/// The caption without the `&` of its mnemonic.
QString plainCaption(const std::string& caption);

/// A control of kind `Interface` that owns its widget. It must go before the widget's parent does.
template <class Interface, class Widget>
class WidgetControl : public Interface {
 public:
  WidgetControl(const ControlDescription& description, QWidget& parent)
      : name_(description.name), position_(description.position), widget_(&parent) {
    describeWidget(widget_, description);
    widget_.setFont(parent.window()->font());
  }

  std::string Name() const override { return name_; }
  bool Visible() const override { return !widget_.isHidden(); }
  void Visible(bool visible) override { widget_.setVisible(visible); }

  Rect Position() const override { return position_; }
  void Position(const Rect& position) override {
    position_ = position;
    widget_.setGeometry(toPixels(position));
    fit();
  }

  void SetFont(const Font& font) override {
    widget_.setFont(withFont(widget_.font(), font));
    fit();
  }

  void ToolTipText(const std::string& text) override { widget_.setToolTip(toQt(text)); }

  Widget& widget() { return widget_; }

 protected:
  /// Makes the content fit after the place or the font has changed.
  virtual void fit() {}

 private:
  std::string name_;
  Rect position_;

 protected:
  Widget widget_;
};

}  // namespace vexnumkr::qtforms

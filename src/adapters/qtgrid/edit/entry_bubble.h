// What is said of an entry while it is being made.
#pragma once

#include <QLabel>

namespace vexnumkr {

/// A note close to the editor, over the cells around it. Keys and mouse go past it.
class EntryBubble final : public QLabel {
  Q_OBJECT

 public:
  explicit EntryBubble(QWidget* viewport);

  /// Says a text below `cell`, or above it where there is more room; an empty one is not shown.
  void say(const QString& text, bool refuses, const QRect& cell);
  /// The cell is elsewhere now.
  void follow(const QRect& cell);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool refuses_ = false;
};

}  // namespace vexnumkr

// What is said of an entry while it is being made.
#pragma once

#include <QLabel>

namespace vexnumkr {

/// A note close to the editor, over the cells around it. Keys and mouse go past it.
class EntryBubble final : public QLabel {
  Q_OBJECT

 public:
  explicit EntryBubble(QWidget* viewport);

  /// Says a text below `cell` or above it, where there is room without covering `spared`, and else
  /// beyond that; an empty text is not shown, an empty area is nowhere.
  void say(const QString& text, bool refuses, const QRect& cell, const QRect& spared);
  /// The cell and the spared area are elsewhere now.
  void follow(const QRect& cell, const QRect& spared);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int topBeside(const QRect& cell, const QRect& spared) const;

  bool refuses_ = false;
};

}  // namespace vexnumkr

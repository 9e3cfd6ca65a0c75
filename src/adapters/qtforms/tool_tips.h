// Tool tips whose texts are plain.
#pragma once

#include <QObject>

namespace vexnumkr::qtforms {

/// Shows the tool tips of the widgets that it is installed on as event filter: their text stands as
/// it is, line breaks kept, long lines wrapped, nothing in it taken for mark-up.
class PlainToolTips final : public QObject {
 public:
  bool eventFilter(QObject* receiver, QEvent* event) override;

  /// The mark-up that shows `text` literally.
  static QString markup(const QString& text);
};

}  // namespace vexnumkr::qtforms

// The pictures of the dialogs, painted as vectors: crisp at every device pixel ratio, in the
// colours of the palette they stand on.
//
// A picture's handle is the number of its kind: pictureHandle(PictureKind::CheckedBox) and so on;
// PictureKind::None has the handle noPicture.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QRectF>

#include "platform/forms.h"

class QPainter;

namespace vexnumkr {

/// The edge of a picture, in device-independent pixels, that fits text of the usual size.
inline constexpr int pictureSize = 13;

constexpr PictureHandle pictureHandle(PictureKind kind) { return static_cast<PictureHandle>(kind); }

/// The kind that a handle stands for; None for a handle that stands for none.
constexpr PictureKind pictureKind(PictureHandle handle) {
  return handle <= pictureHandle(PictureKind::NotFound) ? static_cast<PictureKind>(handle)
                                                        : PictureKind::None;
}

/// Paints the picture into the largest square in the middle of `area`. `opacity` is 0 to 1. The
/// painter's state is left as it was.
void paintPicture(QPainter& painter, const QRectF& area, PictureKind kind, const QPalette& palette,
                  qreal opacity = 1.0);

/// The picture on a transparent ground, `size` device-independent pixels wide and high.
QPixmap picturePixmap(PictureKind kind, int size, const QPalette& palette, qreal devicePixelRatio);

/// The picture as an icon that paints itself anew for every size and device pixel ratio; null for
/// PictureKind::None.
QIcon pictureIcon(PictureKind kind, const QPalette& palette);

}  // namespace vexnumkr

#include "adapters/qt/picture_art.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <algorithm>
#include <cmath>

#include "adapters/qt/colours.h"
#include "adapters/qt/device_pixels.h"

namespace vexnumkr {
namespace {

// A square on a device's pixel grid, divided into 13 units like the pictures' drawings.
class Canvas {
 public:
  Canvas(QPainter& painter, const QRectF& area, const QPalette& palette)
      : painter_(painter),
        ground_(palette.color(QPalette::Base)),
        ink_(palette.color(QPalette::Text)),
        outline_(blended(ground_, ink_, 0.55F)) {
    const qreal ratio = painter.device()->devicePixelRatio();
    const qreal edge = std::floor(std::min(area.width(), area.height()) * ratio) / ratio;
    const QPointF corner = area.center() - QPointF(edge / 2, edge / 2);
    square_ = onDevicePixels(painter, QRectF(corner, QSizeF(edge, edge)));
    line_ = std::max(1.0, std::round(unit() * ratio)) / ratio;
  }

  void box(bool ticked) {
    frame(
        [this](const QRectF& area) { painter_.drawRoundedRect(area, 1.5 * unit(), 1.5 * unit()); });
    if (!ticked) return;
    QPainterPath tick(at(3.2, 6.7));
    tick.lineTo(at(5.6, 9.1));
    tick.lineTo(at(9.9, 3.9));
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(ink_, 1.7 * unit(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.drawPath(tick);
  }

  void option(bool on) {
    frame([this](const QRectF& area) { painter_.drawEllipse(area); });
    if (!on) return;
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(ink_);
    painter_.drawEllipse(square_.center(), 2.9 * unit(), 2.9 * unit());
  }

  void nothing() {
    painter_.setPen(QPen(outline_, 1.2 * unit(), Qt::SolidLine, Qt::FlatCap));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawEllipse(square_.center(), 4.6 * unit(), 4.6 * unit());
    painter_.drawLine(at(3.3, 9.7), at(9.7, 3.3));
  }

  void dots() {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(ink_);
    for (const qreal x : {3.0, 6.5, 10.0}) painter_.drawEllipse(at(x, 6.5), unit(), unit());
  }

 private:
  qreal unit() const { return square_.width() / 13; }
  QPointF at(qreal x, qreal y) const { return square_.topLeft() + QPointF(x, y) * unit(); }

  // The outline's middle lies half a line inside the square, so that it covers whole pixels.
  template <class Draw>
  void frame(Draw draw) {
    painter_.setPen(QPen(outline_, line_));
    painter_.setBrush(ground_);
    draw(square_.adjusted(line_ / 2, line_ / 2, -line_ / 2, -line_ / 2));
  }

  QPainter& painter_;
  QColor ground_;
  QColor ink_;
  QColor outline_;
  QRectF square_;
  qreal line_ = 1;
};

void draw(Canvas& canvas, PictureKind kind) {
  switch (kind) {
    case PictureKind::None:
      return;
    case PictureKind::CellButton:
      return canvas.dots();
    case PictureKind::CheckedBox:
      return canvas.box(true);
    case PictureKind::UncheckedBox:
      return canvas.box(false);
    case PictureKind::OptionOn:
      return canvas.option(true);
    case PictureKind::OptionOff:
      return canvas.option(false);
    case PictureKind::NotFound:
      return canvas.nothing();
  }
}

class PictureIconEngine : public QIconEngine {
 public:
  PictureIconEngine(PictureKind kind, const QPalette& palette) : kind_(kind), palette_(palette) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    paintPicture(*painter, rect, kind_, palette_, mode == QIcon::Disabled ? 0.4 : 1.0);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1.0);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect({}, size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new PictureIconEngine(*this); }

 private:
  PictureKind kind_;
  QPalette palette_;
};

}  // namespace

void paintPicture(QPainter& painter, const QRectF& area, PictureKind kind, const QPalette& palette,
                  qreal opacity) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(painter.opacity() * opacity);
  Canvas canvas(painter, area, palette);
  draw(canvas, kind);
  painter.restore();
}

QPixmap picturePixmap(PictureKind kind, int size, const QPalette& palette, qreal devicePixelRatio) {
  const int edge = static_cast<int>(std::lround(size * devicePixelRatio));
  QPixmap pixmap(edge, edge);
  pixmap.setDevicePixelRatio(devicePixelRatio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  paintPicture(painter, QRectF(0, 0, size, size), kind, palette);
  return pixmap;
}

QIcon pictureIcon(PictureKind kind, const QPalette& palette) {
  if (kind == PictureKind::None) return {};
  return QIcon(new PictureIconEngine(kind, palette));
}

}  // namespace vexnumkr

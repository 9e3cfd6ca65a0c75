#include "app/components/window_icon.h"

#include <QBuffer>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <array>
#include <string_view>

namespace vexnumkr::app {
namespace {

constexpr int gridUnits = 16;

const QColor outline(0x1f, 0x4e, 0x79);
const QColor paper(0xff, 0xff, 0xff);
const QColor fold(0xc9, 0xdb, 0xec);
const QColor ink(0x1f, 0x4e, 0x79);
const QColor bar(0xf2, 0x9b, 0x1d);
const QColor barEnd(0xb8, 0x62, 0x0a);

/// A sheet with its upper right corner cut off, `inset` units inside the outline.
QPainterPath sheet(qreal inset) {
  const qreal corner = 4 - inset;
  QPainterPath path;
  path.moveTo(1 + inset, inset);
  path.lineTo(15 - inset - corner, inset);
  path.lineTo(15 - inset, inset + corner);
  path.lineTo(15 - inset, 16 - inset);
  path.lineTo(1 + inset, 16 - inset);
  path.closeSubpath();
  return path;
}

void paintSheet(QPainter& painter) {
  painter.fillPath(sheet(0), outline);
  painter.fillPath(sheet(1), paper);
  QPainterPath corner;
  corner.moveTo(11, 0);
  corner.lineTo(11, 4);
  corner.lineTo(15, 4);
  corner.closeSubpath();
  painter.fillPath(corner, fold);
  painter.fillRect(QRectF(10, 1, 1, 4), outline);
  painter.fillRect(QRectF(10, 4, 4, 1), outline);
}

/// The digits 1 2 3, five units high.
void paintNumber(QPainter& painter) {
  constexpr std::array<std::string_view, 5> rows = {" # ## ##",  //
                                                    "##  #  #",  //
                                                    " # ## ##",  //
                                                    " # #   #",  //
                                                    " # ## ##"};
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column)
      if (rows[row][column] == '#')
        painter.fillRect(QRectF(4 + qreal(column), 6 + qreal(row), 1, 1), ink);
  }
}

/// From the first number to the last.
void paintRange(QPainter& painter) {
  painter.fillRect(QRectF(3, 13, 10, 1), bar);
  painter.fillRect(QRectF(3, 12, 1, 3), barEnd);
  painter.fillRect(QRectF(12, 12, 1, 3), barEnd);
}

}  // namespace

QImage paintWindowIcon(int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(qreal(size) / gridUnits, qreal(size) / gridUnits);
  paintSheet(painter);
  paintNumber(painter);
  paintRange(painter);
  return image;
}

QIcon windowIcon() {
  QIcon icon;
  for (const int size : {16, 20, 24, 32, 40, 48, 64, 96, 128, 256})
    icon.addPixmap(QPixmap::fromImage(paintWindowIcon(size)));
  return icon;
}

std::string windowIconPng(int size) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  paintWindowIcon(size).save(&buffer, "PNG");
  return buffer.data().toStdString();
}

}  // namespace vexnumkr::app

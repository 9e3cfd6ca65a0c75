#include "bench/plain_dialog.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

#include "adapters/qt/units.h"
#include "data/table/common_names.h"

namespace vexnumkr::bench {

PlainDialog::PlainDialog(const FormDescription& description, const XArray& table) {
  resize(toPixels(description.width), toPixels(description.height));
  fill(table);
  for (const ControlDescription& control : description.controls) {
    QWidget* const widget = madeFor(control);
    if (widget == nullptr) continue;
    widget->setGeometry(toPixels(control.position));
    widget->setVisible(control.visible);
  }
}

// Nothing for the control that only holds a picture.
QWidget* PlainDialog::madeFor(const ControlDescription& control) {
  const QString caption = QString::fromStdString(control.caption);
  switch (control.kind) {
    case ControlKind::Label:
      return new QLabel(caption, this);
    case ControlKind::Button:
      return new QPushButton(caption, this);
    case ControlKind::ComboBox: {
      auto* const combo = new QComboBox(this);
      combo->addItem(QString::fromUtf8(alleBenutzer));
      return combo;
    }
    case ControlKind::TreeGrid: {
      auto* const tree = new QTreeView(this);
      tree->setUniformRowHeights(true);
      tree->setModel(&model_);
      return tree;
    }
    default:
      return nullptr;
  }
}

void PlainDialog::fill(const XArray& table) {
  for (const RangeRow& row : table) {
    if (!row.isCommon()) continue;
    QList<QStandardItem*> items;
    for (const std::string& shown :
         {row.NBezeichnung.str(), row.StartWert.toText(), row.AktuellerWert.toText(),
          row.EndWert.toText(), row.Maske.toText()})
      items.append(new QStandardItem(QString::fromStdString(shown)));
    model_.appendRow(items);
  }
}

}  // namespace vexnumkr::bench

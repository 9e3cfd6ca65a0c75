// A dialog of Qt's own controls, as many and of the same kinds as the component's.
#pragma once

#include <QDialog>
#include <QStandardItemModel>

#include "data/table/xarray.h"
#include "platform/forms.h"

namespace vexnumkr::bench {

/// Does nothing. Its tree holds a row for each of the table's common rows.
class PlainDialog : public QDialog {
 public:
  PlainDialog(const FormDescription& description, const XArray& table);

 private:
  QWidget* madeFor(const ControlDescription& control);
  void fill(const XArray& table);

  QStandardItemModel model_;
};

}  // namespace vexnumkr::bench

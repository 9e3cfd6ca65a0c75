// Rows of a grid as the tab-separated lines in which tables are copied.
#pragma once

#include <QStringList>

#include "adapters/qtgrid/items/grid_model.h"

namespace vexnumkr {

/// The texts of the item's shown cells, without the blanks around them.
QString rowLine(const GridModel& model, int item);

/// The values that the first line of a copied text has for the cells behind the first one: a line
/// with as many texts as `sections` is a whole row, caption included. Empty for an empty text.
QStringList rowValues(const QString& copied, int sections);

}  // namespace vexnumkr

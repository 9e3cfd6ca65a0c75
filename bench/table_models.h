// The editor that a user would make do with instead of the component: the five tables, each in a
// model of Qt's.
#pragma once

#include <QSqlDatabase>
#include <QSqlTableModel>
#include <memory>
#include <vector>

namespace vexnumkr::bench {

/// Those that are edited come first.
using TableModels = std::vector<std::unique_ptr<QSqlTableModel>>;

/// All rows of the five tables. Errors of the engine are raised as exceptions.
TableModels loadTables(const QSqlDatabase& database);

/// Changes a text in up to `atMost` rows of a table; returns of how many.
int changeRows(QSqlTableModel& model, int atMost);

/// Stores what has been changed, in one transaction.
void submit(QSqlDatabase database, const TableModels& models);

}  // namespace vexnumkr::bench

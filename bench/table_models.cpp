#include "bench/table_models.h"

#include <QSqlError>
#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace vexnumkr::bench {
namespace {

constexpr std::array tables = {"Nummernkreise", "Nummernkreis_Zuordnung",
                               "Nummernkreis_Buchungskreise", "Nummernkreis_Sonderkreise",
                               "tblUser"};

// In both tables that are edited: a description, and a user.
constexpr int textColumn = 2;
constexpr QChar changeMark = u'*';

// The name as the engine has folded it; a model quotes it.
QString inEngineCase(const QStringList& known, const char* table) {
  const auto found = std::find_if(known.begin(), known.end(), [&](const QString& name) {
    return name.compare(QLatin1String(table), Qt::CaseInsensitive) == 0;
  });
  if (found == known.end()) throw std::runtime_error(std::string(table) + " is not there");
  return *found;
}

std::unique_ptr<QSqlTableModel> loaded(const QSqlDatabase& database, const QString& table) {
  auto model = std::make_unique<QSqlTableModel>(nullptr, database);
  model->setTable(table);
  model->setEditStrategy(QSqlTableModel::OnManualSubmit);
  if (!model->select()) throw std::runtime_error(model->lastError().text().toStdString());
  while (model->canFetchMore()) model->fetchMore();
  return model;
}

}  // namespace

TableModels loadTables(const QSqlDatabase& database) {
  const QStringList known = database.tables();
  TableModels models;
  for (const char* const table : tables)
    models.push_back(loaded(database, inEngineCase(known, table)));
  return models;
}

int changeRows(QSqlTableModel& model, int atMost) {
  const int rows = std::min(atMost, model.rowCount());
  for (int row = 0; row < rows; ++row) {
    const QModelIndex text = model.index(row, textColumn);
    model.setData(text, text.data().toString() + changeMark);
  }
  return rows;
}

void submit(QSqlDatabase database, const TableModels& models) {
  database.transaction();
  for (const auto& model : models)
    if (!model->submitAll()) throw std::runtime_error(model->lastError().text().toStdString());
  database.commit();
}

}  // namespace vexnumkr::bench

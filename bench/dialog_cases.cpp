// The whole dialog, and the editor that a user would make do with instead.
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlTableModel>
#include <QTimer>
#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <vexnumkr/adapters.h>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/sample_database.h"
#include "bench/session.h"
#include "component/composition.h"
#include "data/range_table.h"
#include "data/table/columns.h"
#include "support/dialog_host.h"

namespace vexnumkr::bench {
namespace {

constexpr std::int32_t changedRows = 100;

// Closes a dialog as soon as its window has been painted.
class CloseWhenPainted final : public QObject {
 public:
  CloseWhenPainted() { qApp->installEventFilter(this); }
  ~CloseWhenPainted() override { qApp->removeEventFilter(this); }
  CloseWhenPainted(const CloseWhenPainted&) = delete;
  CloseWhenPainted& operator=(const CloseWhenPainted&) = delete;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (event->type() == QEvent::Paint && dialog != nullptr && !painted_) {
      painted_ = true;
      QTimer::singleShot(0, dialog, [dialog] { dialog->close(); });
    }
    return false;
  }

 private:
  bool painted_ = false;
};

// The sample company in a file, the component on it, and a driver beside it.
class Sample {
 public:
  explicit Sample(const std::string& engine)
      : database_(sampleScale, engine),
        bare_(database_.connectionString()),
        session_(database_.connectionString()),
        connection_(openQtSqlConnection(database_.connectionString())) {}

  void showDialog() {
    test::DialogHost host;
    const CloseWhenPainted closing;
    QtComponent component(host);
    if (!component.Init(connection_, 1, "Benutzer"))
      throw std::runtime_error("the component does not start");
    component.ShowDialog();
  }

  void showEmptyDialog() {
    const CloseWhenPainted closing;
    for (const char* table : {"Nummernkreise", "Nummernkreis_Buchungskreise",
                              "Nummernkreis_Zuordnung", "Nummernkreis_Sonderkreise", "tblUser"})
      bare_.run("SELECT * FROM " + std::string(table));
    QDialog dialog;
    dialog.resize(600, 360);
    dialog.exec();
  }

  // Takes back what the editor has changed, so that the company stays as it was.
  void restore() {
    bare_.run("UPDATE Nummernkreise SET NBezeichnung = REPLACE(NBezeichnung, '*', '')");
    bare_.run("UPDATE Nummernkreis_Zuordnung SET Benutzer = REPLACE(Benutzer, '*', '')");
  }

  void editInComponent() {
    session_.readLists();
    session_.load();
    XArray& table = session_.table();
    requireRows(table.UpperBound(1) + 1);
    for (std::int32_t row = 0; row < changedRows; ++row)
      basAllgemein::SetValueAll(session_.context(), table.toText(row, column::NSchl),
                                table.toLong(row, column::Buchungskreis), column::Maske,
                                table.toText(row, column::Maske));
    session_.save();
  }

  void editInTableModels() {
    QSqlDatabase database = bare_.database();
    const QStringList known = database.tables();
    std::vector<std::unique_ptr<QSqlTableModel>> models;
    for (const char* const table : tables)
      models.push_back(loaded(database, inEngineCase(known, table)));
    int left = changedRows;
    for (const auto& model : models) left -= changeRows(*model, left);
    requireRows(changedRows - left);
    database.transaction();
    for (const auto& model : models)
      if (!model->submitAll()) throw std::runtime_error(model->lastError().text().toStdString());
    database.commit();
  }

 private:
  // Those that are edited come first.
  static constexpr std::array tables = {"Nummernkreise", "Nummernkreis_Zuordnung",
                                        "Nummernkreis_Buchungskreise", "Nummernkreis_Sonderkreise",
                                        "tblUser"};

  static void requireRows(int rows) {
    if (rows < changedRows) throw std::runtime_error("there are not as many rows to change");
  }

  // The name as the engine has folded it; a model quotes it.
  static QString inEngineCase(const QStringList& known, const char* table) {
    const auto found = std::find_if(known.begin(), known.end(), [&](const QString& name) {
      return name.compare(QLatin1String(table), Qt::CaseInsensitive) == 0;
    });
    if (found == known.end()) throw std::runtime_error(std::string(table) + " is not there");
    return *found;
  }

  static std::unique_ptr<QSqlTableModel> loaded(const QSqlDatabase& database,
                                                const QString& table) {
    auto model = std::make_unique<QSqlTableModel>(nullptr, database);
    model->setTable(table);
    model->setEditStrategy(QSqlTableModel::OnManualSubmit);
    if (!model->select()) throw std::runtime_error(model->lastError().text().toStdString());
    while (model->canFetchMore()) model->fetchMore();
    return model;
  }

  // Changes the texts of up to `atMost` rows of a table; returns of how many.
  int changeRows(QSqlTableModel& model, int atMost) const {
    const int rows = std::min(atMost, model.rowCount());
    for (int row = 0; row < rows; ++row) {
      const QModelIndex text = model.index(row, textColumn);
      model.setData(text, text.data().toString() + changeMark);
    }
    return rows;
  }

  // In both tables that are edited: a description, and a user.
  static constexpr int textColumn = 2;
  static constexpr QChar changeMark = u'*';

  static constexpr int sampleScale = 0;

  SampleDatabase database_;
  BareDriver bare_;
  Session session_;
  std::shared_ptr<Connection> connection_;
};

}  // namespace

void addDialogCases(Comparisons& comparisons, const Scale& /*scale*/) {
  using Sampled = std::shared_ptr<Lazy<Sample>>;
  const auto sampleOn = [](const std::string& engine) {
    return lazily<Sample>([=] { return std::make_unique<Sample>(engine); });
  };
  const auto on = [](const Sampled& sample, void (Sample::*work)()) {
    return seconds([=] { ((**sample).*work)(); }, [=] { (**sample).restore(); });
  };
  const auto editor = [&](const Sampled& sample, const std::string& engine) {
    comparisons.push_back(
        {"editor/" + engine, "editor, " + engine + ": the sample loaded, 100 ranges changed, saved",
         "the same in an editor built on QSqlTableModel", 1, on(sample, &Sample::editInComponent),
         on(sample, &Sample::editInTableModels)});
  };
  const Sampled sample = sampleOn(fileEngine);
  comparisons.push_back({"dialog", "dialog, from Init until it is shown",
                         "an empty QDialog shown, and the five tables read", 2,
                         on(sample, &Sample::showDialog), on(sample, &Sample::showEmptyDialog)});
  editor(sample, fileEngine);
  for (const std::string& engine : otherEngines())
    if (engine == "postgresql") editor(sampleOn(engine), engine);
}

}  // namespace vexnumkr::bench

// The whole dialog, and the editor that a user would make do with instead.
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlTableModel>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

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

  void editInComponent() {
    session_.load();
    XArray& table = session_.table();
    for (std::int32_t row = 0; row < std::min(changedRows, table.UpperBound(1) + 1); ++row)
      basAllgemein::SetValueAll(session_.context(), table.toText(row, column::NSchl),
                                table.toLong(row, column::Buchungskreis), column::Maske,
                                table.toText(row, column::Maske));
    session_.save();
  }

  void editInTableModel() {
    QSqlTableModel ranges(nullptr, bare_.database());
    QSqlTableModel assignments(nullptr, bare_.database());
    load(assignments, "Nummernkreis_Zuordnung");
    load(ranges, "Nummernkreise");
    const int column = descriptionColumn(ranges);
    ++edits_;
    for (int row = 0; row < std::min(changedRows, ranges.rowCount()); ++row)
      ranges.setData(ranges.index(row, column), QStringLiteral("Belegart %1").arg(edits_));
    QSqlDatabase database = bare_.database();
    database.transaction();
    if (!ranges.submitAll()) throw std::runtime_error(ranges.lastError().text().toStdString());
    database.commit();
  }

 private:
  static int descriptionColumn(const QSqlTableModel& model) {
    return std::max(model.fieldIndex(QStringLiteral("NBezeichnung")),
                    model.fieldIndex(QStringLiteral("nbezeichnung")));
  }

  void load(QSqlTableModel& model, const char* table) {
    // As the engine has folded the name; the model quotes it.
    const QStringList known = bare_.database().tables();
    const auto found = std::find_if(known.begin(), known.end(), [&](const QString& name) {
      return name.compare(QLatin1String(table), Qt::CaseInsensitive) == 0;
    });
    if (found == known.end()) throw std::runtime_error(std::string(table) + " is not there");
    model.setTable(*found);
    model.setEditStrategy(QSqlTableModel::OnManualSubmit);
    if (!model.select()) throw std::runtime_error(model.lastError().text().toStdString());
    while (model.canFetchMore()) model.fetchMore();
  }

  static constexpr int sampleScale = 0;

  SampleDatabase database_;
  BareDriver bare_;
  Session session_;
  std::shared_ptr<Connection> connection_;
  int edits_ = 0;
};

}  // namespace

void addDialogCases(Comparisons& comparisons, const Scale& /*scale*/) {
  using Sampled = std::shared_ptr<Lazy<Sample>>;
  const auto sampleOn = [](const std::string& engine) {
    return lazily<Sample>([=] { return std::make_unique<Sample>(engine); });
  };
  const auto on = [](const Sampled& sample, void (Sample::*work)()) {
    return seconds([=] { ((**sample).*work)(); }, [=] { static_cast<void>(**sample); });
  };
  const auto editor = [&](const Sampled& sample, const std::string& engine) {
    comparisons.push_back(
        {"editor/" + engine, "editor, " + engine + ": the sample loaded, 100 ranges changed, saved",
         "the same in an editor built on QSqlTableModel", 1, on(sample, &Sample::editInComponent),
         on(sample, &Sample::editInTableModel)});
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

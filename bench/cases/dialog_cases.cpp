// The whole dialog.
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QTimer>
#include <memory>
#include <stdexcept>
#include <string>

#include <vexnumkr/adapters.h>

#include "bench/bare_driver.h"
#include "bench/cases.h"
#include "bench/plain_dialog.h"
#include "bench/sample_database.h"
#include "bench/sent_statements.h"
#include "bench/session.h"
#include "component/composition.h"
#include "dialogs/main/layout.h"
#include "support/dialog_host.h"

namespace vexnumkr::bench {
namespace {

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
  Sample()
      : database_(sampleScale),
        bare_(database_.connectionString()),
        session_(database_.connectionString(), DatabaseAccess::inSets),
        connection_(openQtSqlConnection(database_.connectionString())) {}

  void showDialog() {
    test::DialogHost host;
    const CloseWhenPainted closing;
    QtComponent component(host, DatabaseAccess::inSets);
    if (!component.Init(connection_, 1, "Benutzer"))
      throw std::runtime_error("the component does not start");
    component.ShowDialog();
  }

  // The least that a dialog like it can cost that sends the same statements.
  void showPlainDialog() {
    const CloseWhenPainted closing;
    const BareDriver secondConnection(database_.connectionString());
    send(bare_, statements(), true);
    PlainDialog dialog(mainDialogDescription(), session_.table());
    dialog.exec();
  }
  void prepare() { statements(); }

  void showEmptyDialog() {
    const CloseWhenPainted closing;
    for (const char* table : {"Nummernkreise", "Nummernkreis_Buchungskreise",
                              "Nummernkreis_Zuordnung", "Nummernkreis_Sonderkreise", "tblUser"})
      bare_.run("SELECT * FROM " + std::string(table));
    QDialog dialog;
    dialog.resize(600, 360);
    dialog.exec();
  }

 private:
  const SentStatements& statements() {
    if (!statements_.empty()) return statements_;
    session_.load();
    statements_ =
        sentBy(database_.connectionString(), DatabaseAccess::inSets, [](Session& session) {
          session.readLists();
          session.load();
        });
    return statements_;
  }

  static constexpr int sampleScale = 0;

  SampleDatabase database_;
  BareDriver bare_;
  Session session_;
  std::shared_ptr<Connection> connection_;
  SentStatements statements_;
};

}  // namespace

void addDialogCases(Comparisons& comparisons, const Scale& /*scale*/) {
  const auto sample = lazily<Sample>([] { return std::make_unique<Sample>(); });
  const auto on = [&](void (Sample::*work)()) {
    return seconds([=] { ((**sample).*work)(); }, [=] { (**sample).prepare(); });
  };
  const std::string empty = "an empty QDialog shown, and the five tables read";
  comparisons.push_back({"dialog", "dialog, from Init until it is shown", empty, 10,
                         on(&Sample::showDialog), on(&Sample::showEmptyDialog)});
  comparisons.push_back({"dialog_least",
                         "dialog: only its statements, bare driver, and plain Qt controls", empty,
                         noLimit, on(&Sample::showPlainDialog), on(&Sample::showEmptyDialog)});
}

}  // namespace vexnumkr::bench

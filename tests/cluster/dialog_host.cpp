// An administrator on a cluster: dialog_host KEY SECONDS, the database in VEXNUMKR_CONNECTION.
//
// Until the time is over, somebody opens the dialog, types a new end into the ranges of that key in
// the circles 1 and 2 (there 1,000,000 more), and presses OK until the dialog closes. What happens
// is told line by line: "s 5003" (that end was saved), "x 5003 1 ..." (it was refused, with so many
// boxes and these texts) and "o 1 ..." (the dialog could not be opened properly).
#include "support/dialog_host.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QThread>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <vexnumkr/adapters.h>

#include "component/composition.h"
#include "dialogs/main/grid_columns.h"
#include "scenario/windows/controls.h"
#include "scenario/windows/grid_access.h"
#include "scenario/windows/input.h"
#include "support/modal_user.h"

namespace vexnumkr::test {
namespace {

using Clock = std::chrono::steady_clock;

std::string oneLine(const std::string& text) {
  return QString::fromStdString(text).simplified().toStdString();
}

class Administrator {
 public:
  Administrator(std::string caption, Clock::time_point end)
      : caption_(std::move(caption)), end_(end), component_(host_, DatabaseAccess::inSets) {}

  void work() {
    for (int value = 5000; Clock::now() < end_; ++value) {
      if (!connect() || !component_.Init(connection_, 1, "Anna", "20240315")) {
        tell('o', "", user_.takeBoxes());
        QThread::msleep(200);
        continue;
      }
      user_.expectDialog("frmNummernkreise", [&] { edit(value); });
      component_.ShowDialog();
    }
  }

 private:
  bool connect() {
    try {
      if (!connection_)
        connection_ =
            openQtSqlConnection(qEnvironmentVariable("VEXNUMKR_CONNECTION").toStdString());
    } catch (const Error& error) {
      std::printf("o 0 %s\n", oneLine(error.what()).c_str());
    }
    return connection_ != nullptr;
  }

  void edit(int value) {
    if (const auto boxes = user_.takeBoxes(); !boxes.empty()) {
      tell('o', "", boxes);
      return press("cmdCancel");
    }
    enter(1, value);
    enter(2, 1'000'000 + value);
    while (user_.front() != nullptr) save(value);
  }

  // Into the cell "Ende" of the key's item that is so far behind its group and standard.
  void enter(int circle, int value) {
    const scenario::GridAccess access(*user_.front());
    std::int32_t item = 0;
    while (access.grid().ItemLevel(item) != 0 ||
           !access.grid().List(item, grid_column::Beschreibung).starts_with(caption_))
      ++item;
    item += 1 + circle;
    scenario::clickAt(*access.view().viewport(), access.cellCentre(item, 4));
    scenario::typeText(QString::number(value));
  }

  void save(int value) {
    const std::string end = std::to_string(value);
    user_.answer("yes");  // The changes shall be saved.
    press("cmdOK");
    auto boxes = user_.takeBoxes();
    std::erase_if(boxes, [](const Box& box) { return box.prompt.starts_with("Sollen die Ä"); });
    if (user_.front() == nullptr) {
      std::printf("s %s\n", end.c_str());
      std::fflush(stdout);
      if (!boxes.empty()) tell('o', "", boxes);
      return;
    }
    tell('x', end + ' ', boxes);
    QThread::msleep(200);  // as whoever has read the box
    if (Clock::now() > end_ + std::chrono::seconds(60)) press("cmdCancel");
  }

  void press(const std::string& name) {
    ModalUser::waitUntilActive(*user_.front());
    QWidget& control = scenario::controlOf(*user_.front(), name);
    scenario::clickAt(control, control.rect().center());
  }

  static void tell(char kind, const std::string& what, const std::vector<Box>& boxes) {
    std::string text;
    for (const Box& box : boxes) text += (text.empty() ? "" : " | ") + oneLine(box.prompt);
    std::printf("%c %s%zu %s\n", kind, what.c_str(), boxes.size(), text.c_str());
    std::fflush(stdout);
  }

  const std::string caption_;
  const Clock::time_point end_;
  std::shared_ptr<Connection> connection_;
  DialogHost host_;
  QtComponent component_;
  ModalUser user_;
};

}  // namespace
}  // namespace vexnumkr::test

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 3) return 2;
  QApplication::setDoubleClickInterval(0);
  vexnumkr::test::Administrator(
      argv[1], std::chrono::steady_clock::now() + std::chrono::seconds(std::atoi(argv[2])))
      .work();
  return 0;
}

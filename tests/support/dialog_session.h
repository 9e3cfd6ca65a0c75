// A session with the real dialogs: real widgets on a real database, of the engine that the test run
// asks for, worked with mouse and keys.
//
//   TEST_F(DialogFiltersTest, ...) {
//     inCompany(2, [&] {
//       select("cboUser", "Max");
//       EXPECT_EQ(tree(), ...);
//     });
//   }
//
// A box that the test has not taken, an answer that no box has used, and a dialog that nobody
// expected or closed fail the test. A dialog that nothing closes ends the program after a while.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "component/composition.h"
#include "dialogs/main/grid_columns.h"
#include "scenario/windows/grid_access.h"
#include "scenario/windows/watchdog.h"
#include "scenario/world/database.h"
#include "support/dialog_host.h"
#include "support/faults/faulty_forms.h"
#include "support/faults/scripted_connection.h"
#include "support/fresh_database.h"
#include "support/modal_user.h"

namespace vexnumkr::test {

using Lines = std::vector<std::string>;
using Boxes = std::vector<Box>;

class DialogSession : public ::testing::Test {
 protected:
  DialogSession();
  ~DialogSession() override;

  // The database, on a connection of the test's own.

  /// Of a test on SQLite.
  const std::string& databaseFile() const { return fresh_.name(); }
  /// Runs a statement, committed at once.
  void sql(const std::string& text) { database_.run(text); }
  const std::string& connectionString() const { return fresh_.connectionString(); }
  /// The rows of a select, their cells joined by " | ".
  Lines rows(const std::string& text) { return database_.run(text); }
  /// The users Anna and Max, the booking circles 1 "Nord" and 2 "Süd" and the keys AN "Angebot" and
  /// RE "Rechnung"; Max draws offers from Nord. In the common view of that origin: items 0 and 4
  /// are the groups, each followed by Standard (ticked), Nord (ticked) and Süd (not ticked).
  void smallCompany(const std::string& origin);

  // The component.

  /// Makes the component, on the first call, and hands the session over.
  bool init(std::int32_t application, const std::string& date = "20240315");
  /// Shows the dialog; `steps` run when it is up, and close it.
  void show(std::function<void()> steps);
  /// Shows the dialog in a running application, which ends when `steps` are over.
  void showToTheEnd(std::function<void()> steps);
  /// Shows the dialog over the small company of that application; it is cancelled in the end unless
  /// `steps` have closed it.
  void inCompany(std::int32_t application, const std::function<void()>& steps);
  QtComponent& component() { return component_; }
  /// For the component no time passes, unless a test says that every look at its clock takes some.
  void everyLookTakes(std::chrono::milliseconds time) { lookTakes_ = time; }
  Session& session() { return component_.session(); }
  ConnectionScript& script() { return script_; }
  FormsFaults& faults() { return faults_; }
  DialogHost& host() { return host_; }
  /// What was sent to the database since the last call.
  Lines statements() { return script_.takeStatements(); }

  // Other modal windows.

  /// `steps` run in the dialog of that name when it comes up, and close it.
  void expectDialog(const std::string& name, std::function<void()> steps) {
    user_.expectDialog(name, std::move(steps));
  }
  void answer(const std::string& button) { user_.answer(button); }
  void whenBoxComes(std::function<void()> act) { user_.whenBoxComes(std::move(act)); }
  Boxes boxes() { return user_.takeBoxes(); }
  Lines windows() { return user_.takeLog(); }

  // What a user does in the dialog in front.

  /// Clicks the middle of a control.
  void press(const std::string& control);
  /// Opens a drop-down list by a click and clicks the entry with that text.
  void select(const std::string& combo, const std::string& text);
  /// Presses keys one after the other, wherever the focus is: "F2", "Shift+Tab".
  void key(const std::string& chord, int times = 1);
  /// Types a text over what is selected.
  void type(const std::string& text);
  void click(std::int32_t item, std::int32_t column, Qt::MouseButton button = Qt::LeftButton);
  void clickPicture(std::int32_t item, Qt::MouseButton button = Qt::LeftButton);
  /// The close button of the window.
  void closeWindow();
  void resize(int width, int height);

  // What a user sees in the dialog in front.

  bool isOpen() const { return user_.front() != nullptr; }
  QDialog& dialog() const;
  QWidget& control(const std::string& name) const;
  template <class Widget>
  Widget& control(const std::string& name) const {
    auto* found = qobject_cast<Widget*>(&control(name));
    if (found == nullptr) throw std::runtime_error(name + " is of another kind");
    return *found;
  }
  bool isVisible(const std::string& name) const { return control(name).isVisible(); }
  Lines entries(const std::string& combo) const;
  std::string shown(const std::string& combo) const;
  std::string focus() const;

  scenario::GridAccess gridAccess() const { return scenario::GridAccess(dialog()); }
  TreeGrid& grid() const { return gridAccess().grid(); }
  std::string cell(std::int32_t item, std::int16_t column) const;
  /// A line per item: a group's caption; a range's picture and caption, "Checked Nord".
  Lines tree() const;
  /// "Start|Aktuell|Ende|Maske" of an item.
  std::string values(std::int32_t item) const;
  std::string picture(std::int32_t item) const { return gridAccess().pictureName(item); }
  /// The cell being edited and its text, "2/4 199"; "none" while none is.
  std::string editor() const;
  std::string selectedText() const;
  /// The tool tip that comes up over the middle of a cell; empty where none does.
  std::string toolTip(std::int32_t item, std::int32_t column) const;

  // What the component holds.

  bool changed() { return session().blnChanged(); }
  /// "Start|Aktuell|Ende|Maske|Aktiviert" of a row of the range table, or "none".
  std::string range(const std::string& user, std::int32_t circle, const std::string& key);

 private:
  FreshDatabase fresh_;
  scenario::ScenarioDatabase database_;
  ConnectionScript script_;
  std::shared_ptr<Connection> connection_;
  DialogHost host_;
  FormsFaults faults_;
  std::chrono::steady_clock::time_point now_;
  std::chrono::milliseconds lookTakes_{0};
  QtComponent component_;
  ModalUser user_;
  scenario::Watchdog watchdog_;
};

}  // namespace vexnumkr::test

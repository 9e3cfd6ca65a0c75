// A session of the core on a real database, of the engine that the test run asks for: for tests of
// everything that needs no window.
//
//   class LoadingTest : public CoreSession {};
//   TEST_F(LoadingTest, ...) {
//     sql("INSERT INTO ...");
//     start(1, {"Anna", "Max"});
//     LoadItems();
//     EXPECT_EQ(rows(), ...);
//   }
//
// A box that the test has not taken, and an answer that no box has used, fail the test.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

#include "hosting/saving.h"
#include "hosting/session.h"
#include "support/faults/scripted_connection.h"
#include "support/fresh_database.h"
#include "support/plain_host.h"
#include "support/recording_forms.h"
#include "support/recording_progress.h"
#include "support/row_of.h"

namespace vexnumkr::test {

class CoreSession : public ::testing::Test {
 protected:
  CoreSession();
  ~CoreSession() override;
  void TearDown() override;

  /// Runs a statement on a connection of the test's own, committed at once.
  void sql(const std::string& text);
  /// The rows of a select, their cells joined by "|"; NULL reads as NULL, booleans as numbers.
  std::vector<std::string> select(const std::string& text);

  /// Hands the session over as Init does (without reading tblUser), builds the working objects and
  /// reads the booking circles.
  void start(std::int32_t application, const std::vector<std::string>& users = {});

  /// The range table, a text per row, its cells joined by "|"; booleans read True and False.
  std::vector<std::string> rows();
  /// The range table, user, booking circle, key and activity of each row: "Max 1 RE True".
  std::vector<std::string> activity();
  /// Appends a row of these cells.
  void row(const RowCells& cells);
  /// Writes what the component itself never writes into a row that is there.
  void change(std::int32_t row, const std::function<void(RangeRow&)>& write);

  // The component's procedures, at work on this session.

  /// With the activity rule, as the dialog has it.
  void LoadItems();
  bool AktiviertDB(std::int32_t circle, const std::string& key, const std::string& user);
  void AddDataBuchungskreis(const std::string& user, std::int32_t circle,
                            const std::string& caption, const std::string& key, bool fromDatabase);
  void GetBuchungskreisData(std::int32_t circle, const std::string& key, std::int32_t& start,
                            std::int32_t& end, std::int32_t& current);
  bool CheckSonderkreise();
  void RefreshSGroups();
  bool RefreshCombo();
  /// Sets the changed flag, as the dialog does, when rows went.
  void RefreshInXArray();
  std::int32_t FoundInXArray(const std::string& user, std::int32_t circle, const std::string& key);
  void AddInXArray(const RangeRow& range, bool allUsers);
  bool DeleteInXArray(std::int32_t circle, const std::string& key, bool allUsers);
  void SetValueAll(const std::string& key, std::int32_t circle, ValueColumn column,
                   const Value& value);
  void SetValue(const std::string& key, const std::string& caption, const std::string& user,
                bool active);
  void CheckActivity();
  bool StartAutoNum();
  /// Shows no defect but keeps it: see takeDefect.
  bool Save(bool askFirst);
  /// The broken rule that saving has shown since the last call.
  std::optional<RangeDefect> takeDefect() { return std::exchange(display_.defect, std::nullopt); }

  /// How often saving had changed rows shown, since the last call.
  int takeShownChanges() { return std::exchange(display_.changes, 0); }

  Session& session() { return session_; }
  StatementSource& source() { return session_.source(); }
  XArray& table() { return session_.XArray(); }
  ConnectionScript& script() { return script_; }
  RecordingForms& forms() { return forms_; }
  RecordingProgress& progress() { return progress_; }
  PlainHost& host() { return host_; }
  std::vector<Box> boxes() { return forms_.takeBoxes(); }
  const std::string& connectionString() const { return database_.connectionString(); }
  FreshDatabase& database() { return database_; }
  std::shared_ptr<Connection> hostConnection() { return connection_; }

 private:
  FreshDatabase database_;
  std::shared_ptr<Connection> own_;
  ConnectionScript script_;
  std::shared_ptr<Connection> connection_;
  RecordingForms forms_;
  RecordingProgress progress_;
  PlainHost host_;
  FixedClock clock_{"20260315"};
  Session session_{Services{forms_, host_, clock_, &progress_}};

  struct KeepingDisplay final : RangeDisplay {
    void showDefect(const RangeDefect& found) override { defect = found; }
    void showChanges() override { ++changes; }
    std::optional<RangeDefect> defect;
    int changes = 0;
  };
  KeepingDisplay display_;
};

/// A cell as the texts above show it.
std::string cellText(const Value& value);

}  // namespace vexnumkr::test

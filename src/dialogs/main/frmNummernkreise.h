// The main dialog.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "dialogs/main/cell_notes.h"
#include "dialogs/main/layout.h"
#include "dialogs/main/tree.h"
#include "hosting/nummernkreise.h"
#include "hosting/saving.h"
#include "hosting/session.h"
#include "platform/forms.h"
#include "platform/tree_grid.h"

namespace vexnumkr {

/// Shows the ranges in a grid with a booking-circle and a user filter. One transaction on the
/// host's connection spans the time it is open: begun when it has loaded, committed by saving,
/// rolled back by cancelling.
///
/// Every handler reports its failures under its own name and leaves the dialog open. A cell being
/// edited is left, its text kept, before another control does its work; where the entry is refused,
/// nothing else happens.
class frmNummernkreise final : public MainDialog,
                               private FormEvents,
                               private TreeGridEvents,
                               private RangeDisplay {
 public:
  explicit frmNummernkreise(Session& session);
  ~frmNummernkreise() override;

  void RefreshFont(const std::string& fontName) override;
  void Show() override;

 private:
  // How the dialog is being closed.
  enum CloseMode : std::int32_t {
    NotClosing = -1,
    ByOK = 0,
    ByCancel = 1,
    ByCloseButton = 2,
    Unloaded = 3  // the user has given up loading: there is no transaction yet
  };

  void Form_Load() override;
  void Form_Shown() override;
  void Form_QueryUnload(bool& Cancel, std::int16_t UnloadMode) override;
  void Form_Unload() override;
  void Form_KeyDown(std::int16_t KeyCode, std::int16_t Shift) override;
  void Form_Resize() override;

  void cboBuchungskreis_Click();
  void cboUser_Click();
  void cmdAuto_Click();
  void cmdBuchungskreise_Click();
  void cmdSonderkreise_Click();
  void cmdOptionen_Click();
  void cmdOK_Click();
  void cmdCancel_Click();

  void ItemClick(std::int32_t index, std::int16_t column, GridArea area,
                 std::int16_t button) override;
  void KeyDown(std::int16_t key) override;
  void CEKeyDown(std::int16_t& key, std::int16_t shift, std::int32_t index,
                 std::int16_t column) override;
  void AfterEdit(std::int32_t index, std::int16_t column, bool& cancel, std::string& text) override;
  void ToolTipText(std::int16_t column, std::string& text) override;
  void DescribeCell(std::int32_t index, std::int16_t column, CellNote& note) override;
  void CEChange(std::int32_t index, std::int16_t column, const std::string& text,
                EntryNote& note) override;
  void CEClosed() override { notes_.closeEntry(); }

  void showDefect(const RangeDefect& defect) override;
  void showChanges() override { rebuildGrid(); }

  void ShowUserCombo();
  void CreateToolTips();
  void giveHint(const char* button, const char* text);

  template <class Body>
  void reporting(const char* procedure, Body&& body) {
    reportingFailures(session_.reporter(), {"frmNummernkreise", procedure},
                      std::forward<Body>(body));
  }

  /// For what the user does. In the middle of work, whose rows must not change under it, nothing is
  /// done; a box that tells of a failure of the work changes nothing about that.
  template <class Body>
  void onInput(const char* procedure, Body&& body) {
    if (session_.progress().isWorking()) return;
    const UserAction action(session_.failures());
    reporting(procedure, std::forward<Body>(body));
  }

  void connectControls();
  void takeIcon();
  void prepare();
  void applyApplicationStyle();
  void storePictures();
  void load();
  void fillUserCombo();
  void limitMasks();
  void loadRanges();
  View shownView() const { return {cboBuchungskreis_.Text(), cboUser_.Text()}; }
  void rebuildGrid();
  void RefreshCombo();
  void refillFilter();
  void resetFilters();
  void showNewGroup(const std::set<std::string>& before);
  void selectUser(std::int32_t step);
  std::string currentText(std::int32_t index, std::int16_t column);
  void storeValue(std::int32_t index, std::int16_t column, std::string& text);
  void dragCurrentValue(std::int32_t index, const std::string& text);
  void writeValue(std::int32_t index, std::int16_t column, const std::string& text);
  void showInStandardItem(std::int32_t index, std::int16_t column, const std::string& text);

  Session& session_;
  std::unique_ptr<Form> form_;
  TreeGrid& sftNummernkreise_;
  Tree tree_;
  CellNotes notes_;
  ComboBox& cboBuchungskreis_;
  ComboBox& cboUser_;
  std::optional<MainDialogLayout> layout_;
  std::int32_t closeMode_ = NotClosing;
  View view_;               // the filters as they were last chosen
  bool viewReset_ = false;  // whether saving has made the grid show everything
  bool suppressComboEvents_ = false;
  bool shown_ = false;
};

/// Makes the main dialog for a component.
std::unique_ptr<MainDialog> createMainDialog(Session& session);

}  // namespace vexnumkr

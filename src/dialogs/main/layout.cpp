#include "dialogs/main/layout.h"

#include <string_view>

#include "dialogs/main/grid_columns.h"
#include "platform/descriptions.h"

namespace vexnumkr {
namespace {

constexpr std::int32_t twipsPerUnit = 15;  // a grid unit is a pixel at 96 dots per inch

constexpr std::int32_t margin = 120;
constexpr std::int32_t formWidth = 9600;
constexpr std::int32_t formHeight = 7215;
constexpr std::int32_t gridTop = 570;
constexpr std::int32_t gridWidth = formWidth - 2 * margin;
constexpr std::int32_t buttonTop = 6735;
constexpr std::int32_t buttonWidth = 1335;
constexpr std::int32_t buttonHeight = 360;
constexpr std::int32_t buttonGap = 105;

constexpr double valueColumnWidth = 87;
constexpr double descriptionColumnWidth = 133;

ControlDescription combo(const char* name, const char* accessibleName, const Rect& position,
                         int tabIndex) {
  ControlDescription control = describeControl(ControlKind::ComboBox, name, position);
  control.accessibleName = accessibleName;
  control.tabIndex = tabIndex;
  return control;
}

ControlDescription labelOf(const char* labelled, char accessKey, ControlDescription label) {
  label.labelled = labelled;
  label.accessKey = accessKey;
  return label;
}

ControlDescription withKey(char accessKey, ControlDescription control) {
  control.accessKey = accessKey;
  return control;
}

ControlDescription picture(const char* name, PictureKind kind) {
  ControlDescription control = describeControl(ControlKind::PictureHolder, name, {});
  control.picture = kind;
  control.visible = false;
  return control;
}

Rect bottomLeft(int place) {
  return {margin + place * (buttonWidth + buttonGap), buttonTop, buttonWidth, buttonHeight};
}

Rect bottomRight(int place) {
  return {formWidth - margin - buttonWidth - place * (buttonWidth + buttonGap), buttonTop,
          buttonWidth, buttonHeight};
}

ControlDescription grid() {
  ControlDescription control =
      describeControl(ControlKind::TreeGrid, "sftNummernkreise",
                      {margin, gridTop, gridWidth, buttonTop - margin - gridTop});
  control.accessibleName = "Nummernkreise";
  control.tabIndex = 3;
  control.columns = {{"", 0},
                     {"Beschreibung", descriptionColumnWidth},
                     {"Start", valueColumnWidth, Alignment::Right, true},
                     {"Aktuell", valueColumnWidth, Alignment::Right, true},
                     {"Ende", valueColumnWidth, Alignment::Right, true},
                     {"Maske", valueColumnWidth, Alignment::Left, true},
                     {"Buchungskreis", 0},
                     {"NSchl", 0},
                     {"NBezeichnung", 0},
                     {"SortierIndex", 0},
                     {"Type", 0},
                     {"IstNSchlVon", 0}};
  return control;
}

TreeGrid& gridOf(Form& form) { return form.control<TreeGrid>("sftNummernkreise"); }

}  // namespace

FormDescription mainDialogDescription() {
  FormDescription form;
  form.name = "frmNummernkreise";
  form.caption = "Nummernkreise";
  form.width = formWidth;
  form.height = formHeight;
  form.font = {"Tahoma"};
  form.resizable = true;
  form.minimumWidth = 9060;  // the user filter stays clear of the other one
  form.minimumHeight = 3600;

  ControlDescription options =
      withKey('E', describeButton("cmdOptionen", "Einstellungen", bottomLeft(2), 6));
  options.visible = false;
  ControlDescription circles = describeButton("cmdBuchungskreise", "...", {4515, 135, 420, 315}, 1);
  circles.accessibleName = "Nummernkreise verwalten";

  form.controls = {
      grid(),
      labelOf("cboBuchungskreis", 'N',
              describeLabel("lblBuchungskreis", "Nummernkreis:", {margin, 180, 1320, 225})),
      combo("cboBuchungskreis", "Nummernkreis", {1470, 135, 3000, 315}, 0),
      circles,
      labelOf("cboUser", 'B', describeLabel("lblUser", "Benutzer:", {5580, 180, 900, 225})),
      combo("cboUser", "Benutzer", {6480, 135, 3000, 315}, 2),
      withKey('A', describeButton("cmdAuto", "Automatisch", bottomLeft(0), 4)),
      withKey('S', describeButton("cmdSonderkreise", "Sonderkreise", bottomLeft(1), 5)),
      options,
      describeButton("cmdOK", "OK", bottomRight(1), 7, ButtonRole::Default),
      describeButton("cmdCancel", "Abbrechen", bottomRight(0), 8, ButtonRole::Cancel),
      picture("UglyButtons", PictureKind::CellButton),
      picture("Checked", PictureKind::CheckedBox),
      picture("Unchecked", PictureKind::UncheckedBox),
      picture("ValueTrue", PictureKind::OptionOn),
      picture("ValueFalse", PictureKind::OptionOff),
      picture("NotFound", PictureKind::NotFound)};
  return form;
}

MainDialogLayout::MainDialogLayout(Form& form)
    : form_(form), width_(form.ScaleWidth()), height_(form.ScaleHeight()) {
  for (const char* name : {"lblUser", "cboUser", "sftNummernkreise", "cmdAuto", "cmdSonderkreise",
                           "cmdOptionen", "cmdOK", "cmdCancel"})
    positions_.push_back({name, form.control<Control>(name).Position()});
  valueWidth_ = gridOf(form).ColWidth(grid_column::Aktuell);
}

Rect MainDialogLayout::recorded(const char* name) const {
  for (const Recorded& each : positions_)
    if (std::string_view(each.name) == name) return each.position;
  throw Error::objectNotSet();
}

void MainDialogLayout::move(const char* name, std::int32_t dW, std::int32_t dH) {
  Rect position = recorded(name);
  position.left += dW;
  position.top += dH;
  form_.control<Control>(name).Position(position);
}

void MainDialogLayout::apply() {
  const std::int32_t dW = form_.ScaleWidth() - width_;
  const std::int32_t dH = form_.ScaleHeight() - height_;
  move("lblUser", dW, 0);
  move("cboUser", dW, 0);
  TreeGrid& grid = gridOf(form_);
  Rect position = recorded("sftNummernkreise");
  position.width += dW;
  position.height += dH;
  grid.Position(position);
  // All three start from one width; the grid leaves the rest of the change to the descriptions.
  const double share = dW / 4.0 / twipsPerUnit;
  for (const auto column : {grid_column::Aktuell, grid_column::Ende, grid_column::Maske})
    grid.ColWidth(column, valueWidth_ + share);
  for (const char* name : {"cmdAuto", "cmdSonderkreise", "cmdOptionen"}) move(name, 0, dH);
  for (const char* name : {"cmdOK", "cmdCancel"}) move(name, dW, dH);
}

}  // namespace vexnumkr

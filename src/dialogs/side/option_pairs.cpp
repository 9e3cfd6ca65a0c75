#include "dialogs/side/option_pairs.h"

#include <array>

#include "platform/descriptions.h"

namespace vexnumkr {
namespace {

constexpr const char* byAssignment = "anhand der Benutzerzuordnung ermitteln";
constexpr const char* copyRange = "Nummernkreis kopieren";
constexpr const char* findRange = "Nummernkreis neu ermitteln";

constexpr std::array<OptionPair, 7> pairs{{
    {"optOnNewAN", "Bei Neuanlage eines Angebotes, Nummernkreise für Folgebelege", byAssignment,
     "Nummernkreis des Angebots verwenden, falls vorhanden", "OnNewAN", "ONNewAN"},
    {"optOnNewAB", "Bei Neuanlage eines Auftrages, Nummernkreise für Folgebelege", byAssignment,
     "Nummernkreis des Auftrags verwenden, falls vorhanden", "OnNewAB", "ONNewAB"},
    {"optOnNewBS", "Bei Neuanlage einer Bestellung, Nummernkreise für Folgebelege", byAssignment,
     "Nummernkreis der Bestellung verwenden, falls vorhanden", "OnNewBS", "ONNewBS"},
    {"optOnANToAB", "Bei Übernahme eines Angebotes zum Auftrag",
     "Nummernkreise des Angebotes übernehmen", "Nummernkreise neu ermitteln", "OnANToAB",
     "ONANToAB"},
    {"optOnCopyAN", "Bei Kopieren eines Angebotes", copyRange, findRange, "OnCopyAN", "ONCopyAN"},
    {"optOnCopyAB", "Bei Kopieren eines Auftrages", copyRange, findRange, "OnCopyAB", "ONCopyAB"},
    {"optOnCopyBS", "Bei Kopieren einer Bestellung", copyRange, findRange, nullptr, nullptr},
}};

constexpr std::int32_t margin = 120;
constexpr std::int32_t formWidth = 6600;
constexpr std::int32_t pairHeight = 990;
constexpr std::int32_t pairWidth = formWidth - 4 * margin;
constexpr std::int32_t outerHeight = 7 * pairHeight + 2 * margin;
constexpr std::int32_t buttonTop = outerHeight + 2 * margin;
constexpr std::int32_t buttonHeight = 360;
constexpr std::int32_t buttonWidth = 1335;

std::string frameName(const OptionPair& pair) { return "fra" + std::string(pair.name).substr(3); }

ControlDescription frame(const std::string& name, const std::string& caption, const Rect& position,
                         const std::string& parent) {
  ControlDescription control = describeControl(ControlKind::Frame, name, position);
  control.caption = caption;
  control.parent = parent;
  return control;
}

ControlDescription optionButton(const OptionPair& pair, int index, int tabIndex) {
  ControlDescription control =
      describeControl(ControlKind::OptionButton, pair.name,
                      {margin, 315 + index * 285, pairWidth - 2 * margin, 255});
  control.arrayIndex = index;
  control.caption = index == 0 ? pair.first : pair.second;
  control.parent = frameName(pair);
  control.tabIndex = tabIndex;
  return control;
}

Rect buttonPosition(std::int32_t left) { return {left, buttonTop, buttonWidth, buttonHeight}; }

}  // namespace

std::span<const OptionPair> optionPairs() { return pairs; }

FormDescription optionsDialogDescription() {
  FormDescription form;
  form.name = "frmOptionen";
  form.caption = "Einstellungen";
  form.width = formWidth;
  form.height = buttonTop + buttonHeight + 2 * margin;
  form.font = {"Tahoma"};
  form.controls.push_back(
      frame("fraOptionen", "", {margin, margin, formWidth - 2 * margin, outerHeight}, ""));
  int tabIndex = 0;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const auto top = margin + static_cast<std::int32_t>(i) * pairHeight;
    form.controls.push_back(frame(frameName(pairs[i]), pairs[i].caption,
                                  {margin, top, pairWidth, pairHeight - 75}, "fraOptionen"));
    for (const int index : {0, 1})
      form.controls.push_back(optionButton(pairs[i], index, tabIndex++));
  }
  const std::int32_t right = formWidth - 2 * margin - buttonWidth;  // in line with the pairs
  form.controls.push_back(describeButton("cmdOK", "OK", buttonPosition(right - buttonWidth - 105),
                                         tabIndex, ButtonRole::Default));
  form.controls.push_back(describeButton("cmdCancel", "Abbrechen", buttonPosition(right),
                                         tabIndex + 1, ButtonRole::Cancel));
  return form;
}

}  // namespace vexnumkr

#include "dialogs/main/cell_notes.h"

#include "dialogs/main/grid_columns.h"
#include "rules/entry_check.h"
#include "rules/fill_level.h"

namespace vexnumkr {
namespace {

FillStage stageOf(const FillLevel& level) {
  if (level.isCritical()) return FillStage::Critical;
  return level.isLow() ? FillStage::Low : FillStage::Plenty;
}

void addLine(std::string& text, const std::string& line) {
  if (!text.empty()) text += '\n';
  text += line;
}

// What is stored in the column that a cell shows.
std::string textIn(const RangeValues& values, std::int16_t column) {
  if (column == grid_column::Start) return std::to_string(values.StartWert);
  if (column == grid_column::Aktuell) return std::to_string(values.AktuellerWert);
  if (column == grid_column::Ende) return std::to_string(values.EndWert);
  return values.Maske;
}

}  // namespace

CellNote CellNotes::ofCell(std::int32_t index, std::int16_t column, const std::string& user) {
  CellNote& note = shown_[{index, column}];
  if (!session_.progress().isWorking()) note = freshNote(index, column, user);
  return note;
}

CellNote CellNotes::freshNote(std::int32_t index, std::int16_t column,
                              const std::string& user) const {
  CellNote note;
  const RangeRow* range = rangeOf(index, user);
  if (range == nullptr) return note;
  if (partner_ && *partner_ == RangeId::of(*range)) {
    note.involved = true;
    note.text = "Überschneidet sich mit dem, was gerade eingegeben wird.";
  }
  if (column < grid_column::Start || column > grid_column::Maske) return note;
  if (column == grid_column::Aktuell) addFill(*range, note);
  addChange(*range, column, note);
  return note;
}

// Null for an item that stands for none.
const RangeRow* CellNotes::rangeOf(std::int32_t index, const std::string& user) const {
  const XArray& table = session_.XArray();
  if (!table.exists() || !isRange(grid_, index)) return nullptr;
  const std::int32_t row =
      table.findRange(user, textToLong(grid_.List(index, grid_column::Buchungskreis)),
                      grid_.List(index, grid_column::NSchl));
  return row < 0 ? nullptr : &table.at(row);
}

// Ranges that nobody draws from have nothing to tell.
void CellNotes::addFill(const RangeRow& range, CellNote& note) const {
  if (!range.Aktiviert) return;
  const auto level = fillLevel(range);
  if (!level) return;
  note.fill =
      CellFill{static_cast<std::int32_t>(level->used * 1000 / level->capacity), stageOf(*level)};
  addLine(note.text, freeNumbers(*level));
}

void CellNotes::addChange(const RangeRow& range, std::int16_t column, CellNote& note) const {
  const RangeValues* known = session_.data().known.values(RangeId::of(range));
  const auto present = writableValues(range);
  if (known == nullptr || !present) return;
  const std::string before = textIn(*known, column);
  note.changed = textIn(*present, column) != before;
  if (note.changed) addLine(note.text, before.empty() ? "Geladen: leer" : "Geladen: " + before);
}

EntryNote CellNotes::ofEntry(std::int32_t index, std::int16_t column, const std::string& text) {
  partner_.reset();
  if (session_.progress().isWorking() || !session_.XArray().exists()) return {};
  if (column == grid_column::Maske) return ofMask(text);
  return ofNumber(index, column, text);
}

EntryNote CellNotes::ofMask(const std::string& mask) const {
  const MaskPreview preview = maskPreview(mask, session_.strVerarbeitungsdatum());
  return {preview.text, preview.fails};
}

// The cells of a group stand for its standard range; an empty one is left as it is.
EntryNote CellNotes::ofNumber(std::int32_t index, std::int16_t column, const std::string& text) {
  if (text.empty() && isGroup(grid_, index)) return {};
  const XArray& table = session_.XArray();
  const std::int32_t row =
      table.findRange(alleBenutzer, textToLong(grid_.List(index, grid_column::Buchungskreis)),
                      grid_.List(index, grid_column::NSchl));
  if (row < 0) return {};
  const auto defect = entryDefect(table, table.at(row), valueShownIn(column), text);
  if (!defect) return {};
  if (defect->partner) partner_ = RangeId::of(*defect->partner);
  return {defect->text, true};
}

}  // namespace vexnumkr

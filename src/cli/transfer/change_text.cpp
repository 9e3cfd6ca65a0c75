#include "cli/transfer/change_text.h"

namespace vexnumkr::cli {
namespace {

using numbers::Change;
using numbers::ChangeKind;

const char* nameOf(numbers::ChangedTable table) {
  static constexpr const char* names[] = {"circles", "ranges", "assignments", "specialRanges"};
  return names[static_cast<std::size_t>(table)];
}

const char* germanNameOf(numbers::ChangedTable table) {
  static constexpr const char* names[] = {"Buchungskreis", "Nummernkreis", "Zuordnung",
                                          "Sonderkreis"};
  return names[static_cast<std::size_t>(table)];
}

const char* nameOf(ChangeKind kind) {
  static constexpr const char* names[] = {"added", "changed", "removed"};
  return names[static_cast<std::size_t>(kind)];
}

char signOf(ChangeKind kind) { return "+~-"[static_cast<std::size_t>(kind)]; }

}  // namespace

std::string textOf(const Change& change) {
  std::string text = std::string(1, signOf(change.kind)) + ' ' + germanNameOf(change.table) + " (" +
                     change.what + ")";
  for (std::size_t i = 0; i < change.fields.size(); ++i)
    text += (i == 0 ? ": " : ", ") + change.fields[i];
  return text;
}

Json described(const Change& change) {
  return {{"change", nameOf(change.kind)},
          {"table", nameOf(change.table)},
          {"what", change.what},
          {"fields", change.fields}};
}

}  // namespace vexnumkr::cli

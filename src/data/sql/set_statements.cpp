#include "data/sql/set_statements.h"

#include <algorithm>
#include <array>

namespace vexnumkr::statement {
namespace {

constexpr std::string_view separator = " , ";  // of the values in a list

// A text that grows; appending to one string is what building a large statement comes down to.
class Writer {
 public:
  Writer& operator<<(std::string_view text) {
    text_ += text;
    return *this;
  }
  Writer& operator<<(std::int32_t number) {
    text_ += std::to_string(number);
    return *this;
  }
  Writer& quoted(std::string_view text) { return *this << "'" << text << "'"; }

  std::string take() { return std::move(text_); }

 private:
  std::string text_;
};

// Writes each of `items` by `write`, and `between` them.
template <class Items, class Write>
void list(Writer& out, const Items& items, std::string_view between, Write&& write) {
  bool isFirst = true;
  for (const auto& item : items) {
    if (!isFirst) out << between;
    isFirst = false;
    write(item);
  }
}

void quotedList(Writer& out, const std::vector<std::string_view>& texts) {
  list(out, texts, separator, [&](std::string_view text) { out.quoted(text); });
}

std::string_view flag(bool value) { return value ? "-1" : "0"; }

// The columns of a range besides its identity.
struct Column {
  std::string_view name;
  void (*write)(Writer& out, const RangeRow& range);
};

constexpr std::array columns = {
    Column{"StartWert", [](Writer& out, const RangeRow& r) { out << r.StartWert.toLong(); }},
    Column{"AktuellerWert",
           [](Writer& out, const RangeRow& r) { out << r.AktuellerWert.toLong(); }},
    Column{"EndWert", [](Writer& out, const RangeRow& r) { out << r.EndWert.toLong(); }},
    Column{"Aktiviert", [](Writer& out, const RangeRow& r) { out << flag(r.Aktiviert); }},
    Column{"SortierIndex", [](Writer& out, const RangeRow& r) { out << r.SortierIndex; }},
    Column{"NBezeichnung",
           [](Writer& out, const RangeRow& r) { out.quoted(r.NBezeichnung.str()); }},
    Column{"IstNSchlVon", [](Writer& out, const RangeRow& r) { out.quoted(r.IstNSchlVon.str()); }},
    Column{"Maske", [](Writer& out, const RangeRow& r) { out.quoted(r.Maske.toText()); }}};
static_assert(columns.size() == RangeColumns::count);

// Ranges one after the other that are of one booking circle.
std::vector<std::span<const RangeRow>> byCircle(std::span<const RangeRow> ranges) {
  std::vector<std::span<const RangeRow>> groups;
  for (std::size_t begin = 0; begin < ranges.size();) {
    std::size_t end = begin + 1;
    while (end < ranges.size() && ranges[end].Buchungskreis == ranges[begin].Buchungskreis) ++end;
    groups.push_back(ranges.subspan(begin, end - begin));
    begin = end;
  }
  return groups;
}

// Chooses a column's value by booking circle and key.
void writeChoice(Writer& out, const Column& column,
                 const std::vector<std::span<const RangeRow>>& circles) {
  out << column.name << "=CASE Buchungskreis";
  for (const auto& ranges : circles) {
    out << " WHEN " << ranges.front().Buchungskreis << " THEN CASE NSchl";
    for (const RangeRow& range : ranges) {
      out << " WHEN ";
      out.quoted(range.NSchl.str()) << " THEN ";
      column.write(out, range);
    }
    out << " ELSE " << column.name << " END";
  }
  out << " ELSE " << column.name << " END";
}

void writeCondition(Writer& out, std::span<const KeysOfCircle> ranges) {
  list(out, ranges, " OR ", [&](const KeysOfCircle& of) {
    out << "Buchungskreis=" << of.Buchungskreis << " AND NSchl IN (";
    quotedList(out, of.NSchl);
    out << ")";
  });
}

std::vector<KeysOfCircle> keysOf(const std::vector<std::span<const RangeRow>>& circles) {
  std::vector<KeysOfCircle> keys;
  for (const auto& ranges : circles) {
    KeysOfCircle of{ranges.front().Buchungskreis, {}};
    for (const RangeRow& range : ranges) of.NSchl.push_back(range.NSchl.str());
    keys.push_back(std::move(of));
  }
  return keys;
}

void writeAssignments(Writer& out, const UsersOfRange& of, std::string_view Herkunft) {
  list(out, of.Benutzer, separator, [&](std::string_view user) {
    out << "(";
    out.quoted(Herkunft) << separator << of.Buchungskreis << separator;
    out.quoted(of.NSchl) << separator;
    out.quoted(user) << ")";
  });
}

}  // namespace

std::string assignments(const std::string& Herkunft) {
  return "SELECT Buchungskreis, NSchl, Benutzer FROM Nummernkreis_Zuordnung WHERE Herkunft='" +
         Herkunft + "'";
}

std::string wholeAssignments(const std::string& Herkunft) {
  return "SELECT Buchungskreis, NSchl, Benutzer, Herkunft FROM Nummernkreis_Zuordnung "
         "WHERE Herkunft='" +
         Herkunft + "'";
}

std::string sharedRanges(const std::string& Herkunft) {
  return "SELECT Buchungskreis, NSchl, StartWert, AktuellerWert, EndWert FROM Nummernkreise "
         "WHERE (SELECT COUNT(*) FROM Nummernkreis_Buchungskreise "
         "WHERE Nummernkreis_Buchungskreise.Buchungskreis = Nummernkreise.Buchungskreis "
         "AND Herkunft <> '" +
         Herkunft + "') = 1";
}

std::string deletableRanges(const std::string& andereHerkunft) {
  return "SELECT Buchungskreis, NSchl FROM Nummernkreise WHERE NOT EXISTS (SELECT * FROM "
         "Nummernkreis_Buchungskreise WHERE Nummernkreise.Buchungskreis = "
         "Nummernkreis_Buchungskreise.Buchungskreis AND Herkunft='" +
         andereHerkunft +
         "') AND NSchl <> 'LM' AND NSchl <> 'AF' AND (Buchungskreis <> 0 OR "
         "(IstNSchlVon <> '' AND IstNSchlVon IS NOT NULL))";
}

bool isPlain(std::string_view text) {
  return text.find_first_of(std::string_view("'\\\0", 3)) == std::string_view::npos;
}

bool isPlain(const RangeRow& range) {
  return isPlain(range.NSchl.str()) && isPlain(range.NBezeichnung.str()) &&
         isPlain(range.IstNSchlVon.str()) && isPlain(range.Maske.toText());
}

std::string removeRanges(std::span<const KeysOfCircle> ranges) {
  Writer out;
  out << "DELETE FROM Nummernkreise WHERE ";
  writeCondition(out, ranges);
  return out.take();
}

std::string insertRanges(std::span<const RangeRow> ranges) {
  Writer out;
  out << "INSERT INTO Nummernkreise (NSchl, Buchungskreis";
  for (const Column& column : columns) out << ", " << column.name;
  out << ") VALUES ";
  list(out, ranges, separator, [&](const RangeRow& range) {
    out << "(";
    out.quoted(range.NSchl.str()) << separator << range.Buchungskreis;
    for (const Column& column : columns) {
      out << separator;
      column.write(out, range);
    }
    out << ")";
  });
  return out.take();
}

std::string updateRanges(std::span<const RangeRow> ranges, const RangeColumns& written) {
  const auto circles = byCircle(ranges);
  Writer out;
  out << "UPDATE Nummernkreise SET ";
  list(out, std::span(columns).subspan(written.first, written.end - written.first), ", ",
       [&](const Column& column) { writeChoice(out, column, circles); });
  out << " WHERE ";
  writeCondition(out, keysOf(circles));
  return out.take();
}

std::string removeAssignments(std::span<const UsersOfRange> assignments,
                              const std::string& Herkunft) {
  Writer out;
  out << "DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft=";
  out.quoted(Herkunft) << " AND (";
  list(out, assignments, " OR ", [&](const UsersOfRange& of) {
    out << "Buchungskreis=" << of.Buchungskreis << " AND NSchl=";
    out.quoted(of.NSchl) << " AND Benutzer IN (";
    quotedList(out, of.Benutzer);
    out << ")";
  });
  out << ")";
  return out.take();
}

std::string insertAssignments(std::span<const UsersOfRange> assignments,
                              const std::string& Herkunft) {
  Writer out;
  out << "INSERT INTO Nummernkreis_Zuordnung (Herkunft, Buchungskreis, NSchl, Benutzer) VALUES ";
  list(out, assignments, separator,
       [&](const UsersOfRange& of) { writeAssignments(out, of, Herkunft); });
  return out.take();
}

std::string removeRange(std::int32_t Buchungskreis, std::string_view NSchl) {
  Writer out;
  out << "DELETE FROM Nummernkreise WHERE Buchungskreis=" << Buchungskreis << " AND NSchl=";
  out.quoted(NSchl);
  return out.take();
}

std::string removeAssignment(std::int32_t Buchungskreis, std::string_view NSchl,
                             std::string_view Benutzer, std::string_view Herkunft) {
  Writer out;
  out << "DELETE FROM Nummernkreis_Zuordnung WHERE Buchungskreis=" << Buchungskreis
      << " AND NSchl=";
  out.quoted(NSchl) << " AND Benutzer=";
  out.quoted(Benutzer) << " AND Herkunft=";
  out.quoted(Herkunft);
  return out.take();
}

std::vector<Repetition> repetitions() {
  std::string range = "(?";
  for (std::size_t i = 0; i < columns.size() + 1; ++i) range.append(separator).append("?");
  range += ')';
  const std::string assignment = "(? , ? , ? , ?)";
  const std::string choice = "WHEN ? THEN ?";
  const std::string keys = "Buchungskreis=? AND NSchl IN (?)";
  const std::string users = "Buchungskreis=? AND NSchl=? AND Benutzer IN (?)";
  std::vector<Repetition> all = {{"VALUES " + range, " , " + range},
                                 {"VALUES " + assignment, " , " + assignment},
                                 {"IN (?", " , ?"},
                                 {choice, " " + choice},
                                 {keys, " OR " + keys},
                                 {users, " OR " + users}};
  for (const Column& column : columns) {
    const std::string circle =
        "WHEN ? THEN CASE NSchl WHEN ? THEN ? ELSE " + std::string(column.name) + " END";
    all.push_back({circle, " " + circle});
  }
  return all;
}

}  // namespace vexnumkr::statement

#include "scenario/plain_rules.h"

#include <algorithm>
#include <tuple>

namespace vexnumkr::scenario {
namespace {

const std::string everybody = "Alle Benutzer";
const std::string yes = "True";
const std::string no = "False";

std::string flag(const std::string& stored) { return stored == "-1" ? yes : no; }

std::vector<Cells> circlesOf(const PlainDatabase& database) {
  std::vector<Cells> own;
  for (const Cells& circle : database.circles)
    if (circle[2] == database.origin) own.push_back(circle);
  return own;
}

// The caption of a booking circle, or "" where the origin does not have it.
std::string caption(const PlainDatabase& database, const std::string& number) {
  if (number == "0") return "Standard";
  for (const Cells& circle : circlesOf(database))
    if (circle[0] == number) return circle[1];
  return {};
}

bool isAssigned(const PlainDatabase& database, const std::string& circle, const std::string& key,
                const std::string& user) {
  const Cells wanted = {circle, key, user, database.origin};
  return std::find(database.assignments.begin(), database.assignments.end(), wanted) !=
         database.assignments.end();
}

}  // namespace

PlainTable PlainTable::loaded(const PlainDatabase& database) {
  PlainTable table({}, database.users);
  table.loadStored(database);
  table.spread(database);
  table.deriveUserRows(database);
  table.checkActivity();
  table.refreshSpecials(database);
  return table;
}

std::size_t PlainTable::find(const std::string& user, const std::string& circle,
                             const std::string& key) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Cells& row = rows_[i];
    if (row[Benutzer] == user && row[Buchungskreis] == circle && row[NSchl] == key) return i;
  }
  return none;
}

bool PlainTable::hasKey(const std::string& key) const {
  return std::any_of(rows_.begin(), rows_.end(),
                     [&](const Cells& row) { return row[NSchl] == key; });
}

void PlainTable::loadStored(const PlainDatabase& database) {
  for (const Cells& range : database.ranges) {
    const std::string group = caption(database, range[0]);
    if (group.empty() || range[1] == "LM" || range[1] == "AF") continue;
    const std::string active = range[0] == "0" ? yes : flag(range[6]);
    rows_.push_back({everybody, range[0], group, range[1], range[2], range[3], range[4], range[5],
                     active, range[7], range[8], range[9]});
  }
  std::stable_sort(rows_.begin(), rows_.end(), [](const Cells& a, const Cells& b) {
    return std::stoi(a[SortierIndex]) < std::stoi(b[SortierIndex]);
  });
}

// Every number key in every booking circle.
void PlainTable::spread(const PlainDatabase& database) {
  const std::vector<Cells> stored = rows_;
  for (const Cells& row : stored)
    for (const Cells& circle : circlesOf(database))
      if (find(everybody, circle[0], row[NSchl]) == none) {
        const bool active = isAssigned(database, circle[0], row[NSchl], everybody);
        rows_.push_back({everybody, circle[0], circle[1], row[NSchl], row[NBezeichnung], "0", "0",
                         "0", active ? yes : no, row[SortierIndex], row[IstNSchlVon], "0"});
      }
}

void PlainTable::deriveUserRows(const PlainDatabase& database) {
  const std::vector<Cells> common = rows_;
  for (Cells row : common) {
    if (row[Aktiviert] == no) continue;
    for (const std::string& user : users_) {
      if (find(user, row[Buchungskreis], row[NSchl]) != none) continue;
      row[Benutzer] = user;
      row[Aktiviert] = isAssigned(database, row[Buchungskreis], row[NSchl], user) ? yes : no;
      rows_.push_back(row);
    }
  }
}

void PlainTable::refreshSpecials(const PlainDatabase& database) {
  for (const Cells& special : database.specials) {
    if (special[4] != database.origin) continue;
    if (flag(special[3]) == no)
      rows_.erase(std::remove_if(rows_.begin(), rows_.end(),
                                 [&](const Cells& row) { return row[NSchl] == special[0]; }),
                  rows_.end());
    else if (!hasKey(special[0]))
      addSpecial(database, special);
  }
}

void PlainTable::addSpecial(const PlainDatabase& database, const Cells& special) {
  const std::string last = "99999999";
  for (const std::string& user : users_)
    rows_.push_back(
        {user, "0", "Standard", special[0], special[2], "0", "0", "0", yes, last, special[1], ""});
  // No values are stored for it: a key with any in these booking circles has been loaded already.
  for (const Cells& circle : circlesOf(database))
    rows_.push_back({everybody, circle[0], circle[1], special[0], special[2], "0", "0", "0", no,
                     last, special[1], ""});
}

void PlainTable::checkActivity() {
  std::stable_sort(rows_.begin(), rows_.end(), [](const Cells& a, const Cells& b) {
    return std::make_tuple(a[Benutzer], a[NSchl], std::stoi(a[Buchungskreis])) <
           std::make_tuple(b[Benutzer], b[NSchl], std::stoi(b[Buchungskreis]));
  });
  for (const std::string& user : users_)
    if (user != everybody && !checkActivityOf(user)) return;
}

// False where a key without a standard row has ended the whole check.
bool PlainTable::checkActivityOf(const std::string& user) {
  std::size_t i = 0;
  while (i < rows_.size() && rows_[i][Benutzer] != user) ++i;
  if (i == rows_.size()) return true;
  std::string key = rows_[i][NSchl];
  bool seenActive = false;
  for (; i < rows_.size(); ++i) {
    if (rows_[i][NSchl] != key) {
      if (!seenActive && !activateStandard(user, key)) return false;
      key = rows_[i][NSchl];
      seenActive = false;
    }
    if (rows_[i][Aktiviert] == yes) seenActive = true;
    const bool isLast = i + 1 == rows_.size();
    if (isLast && !seenActive && !activateStandard(user, key)) return false;
    // Only now: the first row of the next user still belongs to a key that both have.
    if (rows_[i][Benutzer] != user) break;
  }
  return true;
}

bool PlainTable::activateStandard(const std::string& user, const std::string& key) {
  const std::size_t standard = find(user, "0", key);
  if (standard == none) return false;
  rows_[standard][Aktiviert] = yes;
  return true;
}

void PlainTable::tick(const PlainTick& tick) {
  const Cells& item = tick.items[tick.item];
  const auto shows = [&](const std::string& picture) {
    return item[0].find("picture=" + picture + " ") != std::string::npos;
  };
  if (item[10] == "Group" || (tick.user == everybody && item[6] == "0")) return;
  if (shows("Checked")) {
    deleteForUsers(item);
    setActive(tick.user, item, false);
  } else if (shows("Unchecked")) {
    addForUsers(item);
    setActive(tick.user, item, true);
  } else if (shows("ValueFalse") && tick.filter == "Alle Buchungskreise") {
    choose(tick);
  }
  checkActivity();
}

void PlainTable::setActive(const std::string& user, const Cells& item, bool active) {
  for (Cells& row : rows_)
    if (row[Benutzer] == user && row[Gruppe] == item[1] && row[NSchl] == item[7]) {
      row[Aktiviert] = active ? yes : no;
      return;
    }
}

void PlainTable::addForUsers(const Cells& item) {
  for (const std::string& user : users_)
    if (user != everybody && find(user, item[6], item[7]) == none)
      rows_.push_back({user, item[6], item[1], item[7], item[8], item[2], item[3], item[4], no,
                       item[9], item[11], ""});
}

void PlainTable::deleteForUsers(const Cells& item) {
  for (const std::string& user : users_) {
    const std::size_t row = user == everybody ? none : find(user, item[6], item[7]);
    if (row != none) rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
  }
}

// The one range of its group that the user draws from.
void PlainTable::choose(const PlainTick& tick) {
  const auto isRange = [&](std::size_t i) { return tick.items[i][10] == "Pos"; };
  for (std::size_t i = tick.item; i-- > 0 && isRange(i);)
    setActive(tick.user, tick.items[i], false);
  for (std::size_t i = tick.item + 1; i < tick.items.size() && isRange(i); ++i)
    setActive(tick.user, tick.items[i], false);
  setActive(tick.user, tick.items[tick.item], true);
}

}  // namespace vexnumkr::scenario

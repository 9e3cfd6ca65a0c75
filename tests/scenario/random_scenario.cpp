#include "scenario/random_scenario.h"

#include <array>
#include <initializer_list>

namespace vexnumkr::scenario {
namespace {

const std::array<std::string, 4> keys = {"AN", "GU", "RE", "BS"};
const std::array<std::string, 6> masks = {"", "", "", "", "  ", "JJNNN"};

std::string origin(int application) { return application == 1 ? "ORB" : "ORC"; }

std::string insert(const std::string& table, std::initializer_list<std::string> values) {
  std::string list;
  for (const std::string& value : values) list += (list.empty() ? "" : ", ") + value;
  return "sql INSERT INTO " + table + " VALUES (" + list + ")\n";
}

std::string text(const std::string& value) { return "'" + value + "'"; }

std::string circleName(int circle) { return "Kreis " + std::to_string(circle); }

std::string userName(int user) { return "Nutzer" + std::to_string(user); }

std::string look() { return "grid\ntable\ncombo cboUser\ncombo cboBuchungskreis\n"; }

}  // namespace

// Each range apart from all others, so that most tables can be saved.
std::string RandomScenario::range(int circle, const std::string& key, int order,
                                  const std::string& drawsFrom) {
  const int start = 1000 * ++ranges_;
  const std::string& mask =
      masks[static_cast<std::size_t>(upTo(static_cast<int>(masks.size()) - 1))];
  return insert("Nummernkreise",
                {std::to_string(circle), text(key), text("Beleg " + key), std::to_string(start),
                 std::to_string(start + upTo(99)), std::to_string(start + 500),
                 chance(60) ? "-1" : "0", std::to_string(order), text(drawsFrom), text(mask)});
}

std::string RandomScenario::rangesOf(const std::string& key, int order) {
  const std::string own = text(origin(application_));
  std::string commands = range(0, key, order);
  for (int circle = 1; circle <= circles_ + 1; ++circle) {
    if (chance(60)) commands += range(circle, key, order);
    for (int user = 1; user <= users_; ++user)
      if (chance(40))
        commands += insert("Nummernkreis_Zuordnung",
                           {std::to_string(circle), text(key), text(userName(user)), own});
  }
  return commands;
}

std::string RandomScenario::beginning() {
  application_ = 1 + upTo(1);
  circles_ = upTo(3);
  users_ = upTo(3);
  const std::string own = text(origin(application_));
  std::string commands = "application " + std::to_string(application_) + "\ndate 20250102\n";
  for (int circle = 1; circle <= circles_; ++circle)
    commands += insert("Nummernkreis_Buchungskreise",
                       {std::to_string(circle), text(circleName(circle)), own});
  for (int user = 1; user <= users_; ++user) commands += insert("tblUser", {text(userName(user))});
  int order = 0;
  for (const std::string& key : keys) commands += rangesOf(key, ++order);
  if (chance(70)) commands += range(0, "S1", 99, "RE");
  commands += insert("Nummernkreis_Sonderkreise",
                     {"'S1'", "'RE'", "'Sonder'", chance(50) ? "-1" : "0", own});
  return commands + "database\ninit\nshow\n" + look();
}

std::string RandomScenario::work(int steps) {
  std::string commands;
  for (int i = 0; i < steps; ++i) commands += step() + look();
  return commands;
}

std::string RandomScenario::ok() const {
  return "statements\n" + std::string(application_ == 1 ? "answer yes\n" : "") +
         "press cmdOK\nstatements\ndatabase\n";
}

// Entries are digits only, so that nothing is ever refused; and every key means nothing to the
// dialog where the item has no editor to open.
std::string RandomScenario::edit() {
  std::string commands = "key F2\n";
  for (int i = chance(70) ? 3 : upTo(2); i > 0; --i) commands += "key Ctrl+Right\n";
  for (int i = upTo(4); i > 0; --i) commands += "key " + std::to_string(1 + upTo(8)) + "\n";
  return commands + "goto 0\n";
}

std::string RandomScenario::step() {
  switch (upTo(9)) {
    case 0:
      return "goto 0\nselect cboBuchungskreis \"" +
             std::string(chance(50) ? "Alle Buchungskreise" : "Aktive Buchungskreise") + "\"\n";
    case 1:
      return circles_ == 0 ? "key F8\n"
                           : "goto 0\nselect cboBuchungskreis \"" +
                                 circleName(1 + upTo(circles_ - 1)) + "\"\n";
    case 2:
      return chance(50) ? "key F7\n" : "key F8\n";
    case 3:
      return std::string("goto 0\nanswer ") + (chance(50) ? "yes" : "no") + "\npress cmdAuto\n";
    case 4:
      return std::string("goto 0\npress cmdSonderkreise\n") +
             (chance(70) ? "tick lstSonderkreise 0\n" : "") +
             (chance(70) ? "press cmdOK\n" : "press cmdCancel\n");
    case 5:
      return "goto 0\npress cmdBuchungskreise\n";
    case 6:
      return edit();
    default: {
      std::string commands = "goto 0\n";
      for (int i = upTo(9); i > 0; --i) commands += "key Down\n";
      return commands + (chance(70) ? "key Space\n" : edit());
    }
  }
}

}  // namespace vexnumkr::scenario

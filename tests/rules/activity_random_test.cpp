// The activity rule against what it means, over a plain list of rows: whoever has rows of a number
// key has an active one, if need be the standard range's. The row behind a user's last one has its
// say in that user's last key; activity.h says why.
#include <algorithm>
#include <random>
#include <set>
#include <tuple>

#include "support/core_session.h"

namespace vexnumkr {
namespace {

struct Row {
  std::string user;
  std::int32_t circle = 0;
  std::string key;
  bool active = false;
};

class PlainRule {
 public:
  std::vector<Row> rows;
  bool failed = false;  // a key had no standard row

  void check(const std::vector<std::string>& users) {
    for (const std::string& user : users) {
      if (user == "Alle Benutzer") continue;
      checkUser(user);
      if (failed) return;
    }
    sort();
  }

 private:
  void sort() {
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
      return std::tie(a.user, a.key, a.circle) < std::tie(b.user, b.key, b.circle);
    });
  }

  void switchStandardOn(const std::string& user, const std::string& key) {
    for (Row& row : rows) {
      if (row.circle == 0 && row.user == user && (row.key == key || row.key.empty())) {
        row.active = true;
        return;
      }
    }
    failed = true;
  }

  bool draws(const std::string& user, const std::string& key) const {
    return std::ranges::any_of(
        rows, [&](const Row& row) { return row.user == user && row.key == key && row.active; });
  }

  void checkUser(const std::string& user) {
    sort();
    const auto own = [&user](const Row& row) { return row.user == user; };
    std::set<std::string> keys;
    for (const Row& row : rows)
      if (own(row)) keys.insert(row.key);
    if (keys.empty()) return;
    const auto behind =
        std::find_if_not(std::ranges::find_if(rows, own), rows.end(), own);  // the next user's row
    const bool isLast = behind != rows.end() && behind + 1 == rows.end();
    const Row next = behind == rows.end() ? Row{} : *behind;
    const std::string lastKey = *keys.rbegin();
    const bool sharesLastKey = behind != rows.end() && next.key == lastKey;
    for (const std::string& key : keys) {
      if (failed || draws(user, key)) continue;
      // The key is still open there: active or not, that row counts for this user too.
      if (key == lastKey && sharesLastKey && (next.active || !isLast)) continue;
      switchStandardOn(user, key);
    }
    // As the last row of all it is also taken for a key of this user's.
    if (!failed && isLast && !sharesLastKey && !next.active) switchStandardOn(user, next.key);
  }
};

class ActivityRandomTest : public test::CoreSession {
 protected:
  template <class T>
  T oneOf(const std::vector<T>& choices) {
    return choices[random_() % choices.size()];
  }

  std::vector<std::string> randomUsers() {
    std::vector<std::string> users{"Alle Benutzer", "Anna", "Max", "Zoe", "max"};
    std::shuffle(users.begin(), users.end(), random_);
    users.resize(random_() % (users.size() + 1));
    return users;
  }

  // Mostly with the standard rows that the rule falls back to.
  std::vector<Row> randomRows() {
    const std::vector<std::string> users{"Alle Benutzer", "Anna", "Gast", "Max", "Zoe", "max"};
    const std::vector<std::string> keys{"AN", "RE", "re", random_() % 8 == 0 ? "" : "VK"};
    const auto activeOutOf = 1 + random_() % 6;
    const bool complete = random_() % 4 != 0;
    std::vector<Row> rows;
    const auto add = [&](const std::string& user, std::int32_t circle, const std::string& key) {
      rows.push_back({user, circle, key, random_() % activeOutOf == 0});
    };
    for (std::size_t i = random_() % 25; i > 0; --i)
      add(oneOf(users), static_cast<std::int32_t>(random_() % 4), oneOf(keys));
    if (complete)
      for (const std::string& user : users)
        for (const std::string& key : keys)
          if (random_() % 12 != 0) add(user, 0, key);
    std::shuffle(rows.begin(), rows.end(), random_);
    return rows;
  }

  void fill(const std::vector<std::string>& users, const std::vector<Row>& rows) {
    session().createColUser();
    session().colUser() = users;
    table().create();
    for (const Row& each : rows)
      row({.Benutzer = each.user,
           .Buchungskreis = each.circle,
           .NSchl = each.key,
           .StartWert = 1,
           .AktuellerWert = 1,
           .EndWert = 9,
           .Aktiviert = each.active});
  }

  void compare(unsigned seed) {
    random_.seed(seed);
    const auto users = randomUsers();
    PlainRule plain;
    plain.rows = randomRows();
    fill(users, plain.rows);
    plain.check(users);
    CheckActivity();
    std::vector<std::string> expected;
    for (const Row& each : plain.rows)
      expected.push_back(each.user + " " + std::to_string(each.circle) + " " + each.key +
                         (each.active ? " True" : " False"));
    EXPECT_EQ(activity(), expected);
    std::vector<test::Box> reported;
    if (plain.failed)
      reported.push_back(test::errorBox(9, "basAllgemein", "CheckActivity",
                                        "Index außerhalb des gültigen Bereichs"));
    EXPECT_EQ(boxes(), reported);
    ++(plain.failed ? failures_ : successes_);
  }

  std::mt19937 random_;
  int successes_ = 0;
  int failures_ = 0;
};

TEST_F(ActivityRandomTest, DoesWhatItMeansOnAPlainListOfRows) {
  start(1);
  const unsigned first = std::random_device{}() % 1'000'000;
  for (unsigned seed = first; seed < first + 2000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    compare(seed);
    if (HasFailure()) return;
  }
  EXPECT_GT(successes_, 100) << "seeds from " << first;
  EXPECT_GT(failures_, 100) << "seeds from " << first;
}

}  // namespace
}  // namespace vexnumkr

#include "rules/activity.h"

#include "data/range_table.h"

namespace vexnumkr::basAllgemein {
namespace {

// The rule for one user, over a table sorted for the tree.
class UserCheck {
 public:
  UserCheck(XArray& table, const std::string& user, Reporter& reporter)
      : table_(table), user_(user), reporter_(reporter) {}

  void run() {
    const std::int32_t first = table_.findUser(user_);
    if (first == -1) return;
    const Text user = table_.at(first).Benutzer;
    key_ = table_.at(first).NSchl;
    const std::int32_t last = table_.size() - 1;
    for (std::int32_t i = first; i <= last; ++i) {
      const RangeRow& row = table_.at(i);
      if (!(row.NSchl == key_)) startKey(row.NSchl);
      if (row.Aktiviert) seenActive_ = true;
      if (i == last) closeKey();
      // Looked at last on purpose: the next user's first row closes this user's last key.
      if (!(row.Benutzer == user)) return;
    }
  }

 private:
  void startKey(Text key) {
    closeKey();
    key_ = key;
    seenActive_ = false;
  }

  void closeKey() {
    if (seenActive_) return;
    table_.setAktiviert(FoundInXArray(table_, reporter_, user_, 0, key_.str()), true);
  }

  XArray& table_;
  const std::string& user_;
  Reporter& reporter_;
  Text key_;
  bool seenActive_ = false;
};

}  // namespace

void CheckActivity(XArray& table, const Users& users, Reporter& reporter) {
  reportingFailures(reporter, {generalModule, "CheckActivity"}, [&] {
    table.sort(RowOrder::tree);
    for (const std::string& user : users)
      if (user != alleBenutzer) UserCheck(table, user, reporter).run();
  });
}

}  // namespace vexnumkr::basAllgemein

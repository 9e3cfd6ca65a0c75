// Which ranges are assigned to whom, read in one go.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/table/loose_text.h"

namespace vexnumkr {

/// Whether the database would find an assignment if it was asked for it.
enum class Assigned {
  No,
  Yes,
  Perhaps,  ///< One that differs in what its columns may leave out of account: it has to be asked.
};

/// The stored assignments of an origin, as far as they concern certain keys and users.
class AssignedRanges {
 public:
  void addKey(std::string_view NSchl) { keys_.add(NSchl); }
  void addUser(std::string_view Benutzer) { users_.add(Benutzer); }

  /// An assignment is stored. REQUIRES: all keys and users have been added.
  void add(std::int32_t Buchungskreis, std::string_view NSchl, std::string_view Benutzer);
  /// The same for one whose booking circle is stored as something else than a number.
  void addDoubtful(std::int32_t Buchungskreis, std::string_view NSchl, std::string_view Benutzer);

  /// For a key or a user that was not added: Perhaps.
  Assigned find(std::int32_t Buchungskreis, std::string_view NSchl,
                std::string_view Benutzer) const;

 private:
  using Number = LooseNames::Number;
  using UsersOfRange = std::vector<Assigned>;

  static std::uint64_t rangeOf(std::int32_t circle, Number key);
  Assigned& at(std::int32_t circle, Number key, Number user);

  LooseNames keys_;
  LooseNames users_;
  std::unordered_map<std::uint64_t, UsersOfRange> ranges_;
};

}  // namespace vexnumkr

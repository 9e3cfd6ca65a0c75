// The data of the sample company.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vexnumkr::app {

/// A row of Nummernkreise.
struct SampleRange {
  std::int32_t circle = 0;
  std::string key;
  std::string description;
  std::int32_t start = 0;
  std::int32_t current = 0;
  std::int32_t end = 0;
  bool active = true;
  std::int32_t sortIndex = 0;
  std::string sharedKey;  ///< the key from whose numbers this one draws, or empty
  std::string mask;
};

/// A row of Nummernkreis_Buchungskreise.
struct SampleCircle {
  std::int32_t number = 0;
  std::string description;
  std::string origin;
};

/// A row of Nummernkreis_Zuordnung.
struct SampleAssignment {
  std::int32_t circle = 0;
  std::string key;
  std::string user;
  std::string origin;
};

/// A row of Nummernkreis_Sonderkreise.
struct SampleSpecialRange {
  std::string key;
  std::string sharedKey;
  std::string description;
  bool active = false;
  std::string origin;
};

/// A company's tables as its host has last saved them: every range is in order and overlaps no
/// other of its sequence, also after renumbering from the masks; every user has exactly one active
/// range per key and origin.
struct SampleCompany {
  std::vector<SampleRange> ranges;
  std::vector<SampleCircle> circles;
  std::vector<SampleAssignment> assignments;
  std::vector<SampleSpecialRange> specialRanges;
  std::vector<std::string> users;
};

/// A trading company with a workshop and a web shop: order processing (ORB) with five booking
/// circles, accounting with its tills (ORC) with three, one of them shared.
SampleCompany smallCompany();

}  // namespace vexnumkr::app

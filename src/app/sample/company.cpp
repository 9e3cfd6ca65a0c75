#include "app/sample/company.h"

#include <algorithm>
#include <map>

namespace vexnumkr::app {
namespace {

constexpr const char* orderProcessing = "ORB";
constexpr const char* accounting = "ORC";
constexpr const char* everybody = "ALL";

/// Where the component sorts a special range that has been switched on.
constexpr std::int32_t behindAllOthers = 99999999;

/// One range of a document type: its booking circle, values, whether it is in use, and its mask.
struct RangeLine {
  std::int32_t circle;
  std::int32_t start;
  std::int32_t current;
  std::int32_t end;
  bool active;
  const char* mask;
};

struct DocumentType {
  const char* key;
  const char* description;
  std::int32_t sortIndex;
  const char* sharedKey;
  std::vector<RangeLine> lines;
};

// The numbers are those of the business year 2026. The booking circle leads the longer numbers, so
// that ranges of one document type stay apart in every year.
std::vector<DocumentType> salesDocuments() {
  return {
      {"AN",
       "Angebot",
       10,
       "",
       {{0, 260000, 260318, 269999, true, "J%%JNNNN"},
        {1, 1260000, 1260127, 1269999, true, "1JJNNNN"},
        {2, 2260000, 2260044, 2269999, true, "2JJNNNN"},
        {4, 4260000, 4260009, 4269999, true, "4JJNNNN"}}},
      {"AB",
       "Auftrag",
       20,
       "",
       {{0, 260000, 260291, 269999, true, "J%%JNNNN"},
        {1, 1260000, 1260112, 1269999, true, "1JJNNNN"},
        {2, 2260000, 2260038, 2269999, true, "2JJNNNN"},
        {3, 3260000, 3261874, 3269999, true, "3JJNNNN"},
        {4, 4260000, 4260007, 4269999, true, "4JJNNNN"},
        {5, 5260000, 5260000, 5269999, false, "5JJNNNN"},
        {12, 12260000, 12260063, 12269999, true, "12JJNNNN"}}},
      {"LS",
       "Lieferschein",
       30,
       "",
       {{0, 260000, 260277, 269999, true, "JJNNNN"},
        {1, 1260000, 1260098, 1269999, true, "1JJNNNN"},
        {2, 2260000, 2260036, 2269999, true, "2JJNNNN"},
        {3, 3260000, 3261851, 3269999, true, "3JJNNNN"}}},
      {"RE",
       "Rechnung",
       40,
       "",
       {{0, 260000, 260263, 269999, true, "J%%JNNNN"},
        {1, 1260000, 1260094, 1269999, true, "1JJNNNN"},
        {2, 2260000, 2260035, 2269999, true, "2JJNNNN"},
        {3, 3260000, 3261849, 3269999, true, "3JJNNNN"},
        {5, 26000, 26012, 26999, false, "RE-JJ-NNN"},
        {11, 11260000, 11260208, 11269999, true, "11JJNNNN"}}},
      {"GU",
       "Gutschrift",
       50,
       "",
       {{0, 26000, 26021, 26999, true, "JJNNN"},
        {1, 126000, 126008, 126999, true, "1JJNNN"},
        {3, 326000, 326119, 326999, true, "3JJNNN"},
        {11, 1126000, 1126004, 1126999, true, "11JJNNN"}}},
      {"KV",
       "Kostenvoranschlag",
       60,
       "",
       {{0, 26000, 26003, 26999, true, "KV-JJ-NNN"}, {4, 426000, 426058, 426999, true, "4JJNNN"}}},
      {"RP",
       "Reparaturauftrag",
       70,
       "",
       {{0, 1, 1, 9999, true, ""}, {4, 40000, 40733, 49999, true, "4NNNN"}}},
      {"MA", "Mahnung", 80, "", {{0, 11000, 11017, 11999, true, "MMNNN"}}},
  };
}

std::vector<DocumentType> otherDocuments() {
  return {
      {"BA", "Bestellanfrage", 110, "", {{0, 26000, 26029, 26999, true, "JJNNN"}}},
      {"BS",
       "Bestellung",
       120,
       "",
       {{0, 260000, 260186, 269999, true, "JJNNNN"},
        {1, 1260000, 1260071, 1269999, true, "1JJNNNN"}}},
      {"WE",
       "Wareneingang",
       130,
       "",
       {{0, 202611000, 202611024, 202611999, true, "JJJJMMNNN"},
        {2, 20000, 20187, 29999, true, "2NNNN"}}},
      {"RL", "Rücklieferung", 140, "", {{0, 1, 216, 9999, true, ""}}},
      {"KB",
       "Kassenbeleg",
       150,
       "",
       {{0, 10000, 10000, 19999, true, "1NNNN"},
        {5, 50000, 50341, 59999, false, "5NNNN"},
        {11, 110000, 114296, 119999, true, "11NNNN"},
        {12, 120000, 120755, 129999, true, "12NNNN"}}},
      {"IV", "Inventurliste", 160, "", {{0, 1, 42, 999, true, ""}}},
      {"PF",
       "Proforma-Rechnung",
       behindAllOthers,
       "RE",
       {{0, 90260000, 90260018, 90269999, true, "90JJNNNN"}}},
      {"MU",
       "Musterlieferung",
       behindAllOthers,
       "LS",
       {{0, 91260000, 91260005, 91269999, true, "91JJNNNN"}}},
      {"GS",
       "Gutscheinverkauf",
       behindAllOthers,
       "KB",
       {{0, 900000, 900087, 909999, true, "90NNNN"}}},
  };
}

/// The two keys that the host numbers itself.
std::vector<DocumentType> hostDocuments() {
  return {{"LM", "Lagermeldung", 900, "", {{0, 1, 58214, 999999, true, ""}}},
          {"AF", "Arbeitsauftrag Fertigung", 910, "", {{0, 1, 1377, 99999, true, ""}}}};
}

std::vector<SampleRange> ranges(const std::vector<DocumentType>& types) {
  std::vector<SampleRange> result;
  for (const DocumentType& type : types) {
    for (const RangeLine& line : type.lines) {
      result.push_back({line.circle, type.key, type.description, line.start, line.current, line.end,
                        line.active, type.sortIndex, type.sharedKey, line.mask});
    }
  }
  return result;
}

/// The booking circles from which users draw where they do not use the standard range.
struct Preference {
  const char* origin;
  const char* user;
  std::vector<const char*> keys;
  std::int32_t circle;
};

std::vector<Preference> preferences() {
  return {{orderProcessing, "Becker", {"AN", "AB", "LS", "RE", "GU", "BS"}, 1},
          {orderProcessing, "Böhm", {"AB", "LS", "RE", "GU"}, 3},
          {orderProcessing, "Krause", {"AN", "AB", "LS", "RE", "WE"}, 2},
          {orderProcessing, "Yilmaz", {"AN", "AB", "KV", "RP"}, 4},
          {accounting, "Böhm", {"AB", "LS", "RE", "GU"}, 3},
          {accounting, "Hoffmann", {"RE", "GU", "KB"}, 11},
          {accounting, "Yilmaz", {"AB", "KB"}, 12}};
}

std::int32_t preferredCircle(const std::vector<Preference>& preferences, const std::string& origin,
                             const std::string& user, const std::string& key) {
  for (const Preference& preference : preferences)
    if (preference.origin == origin && preference.user == user &&
        std::find(preference.keys.begin(), preference.keys.end(), key) != preference.keys.end())
      return preference.circle;
  return 0;
}

bool belongsTo(const SampleRange& range, const std::string& origin,
               const std::vector<SampleCircle>& circles) {
  return range.circle == 0 ||
         std::any_of(circles.begin(), circles.end(), [&](const SampleCircle& circle) {
           return circle.number == range.circle && circle.origin == origin;
         });
}

/// What the component writes on saving: everybody's rows for the active ranges, and for each user
/// the one range that is that user's own.
std::vector<SampleAssignment> assignments(const SampleCompany& company,
                                          const std::vector<SampleRange>& administered) {
  const std::vector<Preference> wishes = preferences();
  std::vector<SampleAssignment> result;
  for (const char* origin : {orderProcessing, accounting}) {
    for (const SampleRange& range : administered) {
      if (!range.active || !belongsTo(range, origin, company.circles)) continue;
      result.push_back({range.circle, range.key, everybody, origin});
      for (const std::string& user : company.users)
        if (preferredCircle(wishes, origin, user, range.key) == range.circle)
          result.push_back({range.circle, range.key, user, origin});
    }
  }
  return result;
}

}  // namespace

SampleCompany smallCompany() {
  SampleCompany company;
  company.users = {"Becker", "Böhm", "Hoffmann", "Krause", "Yilmaz"};
  company.circles = {
      {1, "Zentrale Ulm", orderProcessing}, {2, "Niederlassung Dresden", orderProcessing},
      {3, "Onlinehandel", orderProcessing}, {4, "Werkstatt", orderProcessing},
      {5, "Messeverkauf", orderProcessing}, {3, "Onlinehandel", accounting},
      {11, "Ladenkasse", accounting},       {12, "Außendienst", accounting}};
  company.specialRanges = {{"PF", "RE", "Proforma-Rechnung", true, orderProcessing},
                           {"EX", "RE", "Exportrechnung", false, orderProcessing},
                           {"RA", "RE", "Ratenrechnung", false, orderProcessing},
                           {"MU", "LS", "Musterlieferung", true, orderProcessing},
                           {"GS", "KB", "Gutscheinverkauf", true, accounting},
                           {"EV", "KB", "Eigenverbrauch", false, accounting}};

  std::vector<DocumentType> types = salesDocuments();
  const std::vector<DocumentType> others = otherDocuments();
  types.insert(types.end(), others.begin(), others.end());
  company.ranges = ranges(types);
  company.assignments = assignments(company, company.ranges);

  const std::vector<SampleRange> hostRanges = ranges(hostDocuments());
  company.ranges.insert(company.ranges.end(), hostRanges.begin(), hostRanges.end());
  return company;
}

}  // namespace vexnumkr::app

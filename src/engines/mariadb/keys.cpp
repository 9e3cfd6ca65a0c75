#include "engines/mariadb/keys.h"

#include <algorithm>
#include <utility>

namespace vexnumkr::engines {

// An index over a part of a text, or that may hold NULL, identifies nothing.
TableKeys mariadbKeys(const Catalogue& ask, std::string_view table) {
  // The primary key comes first.
  std::map<std::pair<bool, std::string>, std::vector<std::string>> indexes;
  for (CatalogueRow& row : ask("SHOW INDEX FROM " + std::string(table))) {
    const std::string index = row["Key_name"].value_or("");
    const bool identifies = row["Non_unique"] == "0" && row["Null"] != "YES" && !row["Sub_part"];
    indexes[{index != "PRIMARY", index}].push_back(identifies ? row["Column_name"].value_or("")
                                                              : std::string());
  }
  for (const auto& [index, columns] : indexes)
    if (std::find(columns.begin(), columns.end(), "") == columns.end())
      return {.unique = columns, .columns = {}};
  return {};
}

}  // namespace vexnumkr::engines

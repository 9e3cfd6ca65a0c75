// The statements with which a database is tried out, and the tables that there have to be.
#pragma once

#include <string>
#include <vector>

namespace vexnumkr::numbers {

struct TableShape {
  std::string name;
  std::vector<std::string> columns;
};

/// The five tables of the host.
const std::vector<TableShape>& hostTables();

namespace probe {

/// Finds nothing, and fails where a column or the right to read is missing.
std::string readNothing(const std::string& table, const std::string& columns);
/// How many ranges lack a value that the dialog needs, as Anzahl.
std::string rangesWithNull();
/// How many users there are, and how many of a name, as Anzahl.
std::string users();
std::string usersCalled(const std::string& name);
/// The server's date as "yyyy-mm-dd", as Tag.
std::string serverDate();

/// What a node of a Galera cluster says of itself, as Variable_name and Value; fails, or says
/// nothing of a wsrep_provider_name, elsewhere.
std::string clusterState();
/// Which of the host's tables have no primary key there, as Tabelle.
std::string tablesWithoutKey();

/// A range of the probe's with that key.
std::string insertRange(const std::string& key);
std::string updateRange(const std::string& key);
/// Gives it a description, written as `literal`.
std::string describeRange(const std::string& key, const std::string& literal);
/// Its values, and how many the key finds, as Anzahl.
std::string readRange(const std::string& key);
std::string countRanges(const std::string& key);
std::string deleteRanges();

/// What a save and the side dialogs change besides: insert, change and delete.
std::vector<std::string> writesElsewhere();
/// The probe's rows in those tables.
std::vector<std::string> deletesElsewhere();

}  // namespace probe
}  // namespace vexnumkr::numbers

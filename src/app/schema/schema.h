// The tables of the stand-alone host, as scripts for each database engine.
//
// The definitions are in a folder per engine beside this file, for administrators to read and run;
// what an engine needs besides belongs there and nowhere else.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexnumkr::app {

/// The scripts of one engine, as its folder has them; empty where it needs none.
struct SchemaScripts {
  std::string_view engine;  ///< Its name, as engines.h has it.
  std::string_view ranges;
  std::string_view settings;
  std::string_view rights;
  std::string_view journal;       ///< Makes the journal; it may be run again.
  std::string_view journalDraws;  ///< Behind that: has drawn numbers recorded, too.
  std::string_view journalEnd;    ///< Ends it; its entries stay.
};

/// Those of all engines, in the order of the list of engines.
std::span<const SchemaScripts> allSchemaScripts();

/// Those of the engine of that name. Error: 3706 for any other name.
const SchemaScripts& schemaScriptsOf(std::string_view engine);

/// The statements of a script, without comments, in the order to run them.
std::vector<std::string> statementsOf(std::string_view script);

/// The same for the scripts of the journal, where statements hold statements, and a blank line ends
/// each of them.
std::vector<std::string> paragraphsOf(std::string_view script);

/// The statements that make the tables of the number ranges. Error as for schemaScriptsOf.
std::vector<std::string> rangeTableStatements(std::string_view engine);

/// The statements that make the settings table. Error as above.
std::vector<std::string> settingsTableStatements(std::string_view engine);

}  // namespace vexnumkr::app

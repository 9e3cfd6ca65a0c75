// The definitions of the tables, for administrators to read and run.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <vexnumkr/database.h>

namespace vexnumkr::cli {

/// The scripts of one engine; empty where it needs none.
struct SchemaScripts {
  std::string_view engine;
  std::string_view ranges;
  std::string_view settings;
  std::string_view rights;
  std::string_view journal;       ///< what makes the journal; it may be run again
  std::string_view journalDraws;  ///< behind that: has drawn numbers recorded, too
  std::string_view journalEnd;    ///< ends it; its entries stay
};

/// Error: UsageError for an engine that there is none of, with those that there are.
const SchemaScripts& schemaScripts(const std::string& engine);

/// The names of the engines, ascending.
std::vector<std::string> schemaEngines();

/// Those of the engine that an open connection reaches. Error: 3706 when it is no supported one.
const SchemaScripts& schemaScriptsFor(Connection& connection);

/// The statements of a script, without comments, in the order to run them.
std::vector<std::string> statementsOf(std::string_view script);

/// The same for the scripts of the journal, where statements hold statements, and a blank line ends
/// each of them.
std::vector<std::string> paragraphsOf(std::string_view script);

}  // namespace vexnumkr::cli

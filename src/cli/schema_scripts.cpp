#include "cli/schema_scripts.h"

#include <algorithm>

#include <vexnumkr/engines.h>

#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

std::string list(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

}  // namespace

const app::SchemaScripts& schemaScripts(const std::string& engine) {
  for (const app::SchemaScripts& scripts : app::allSchemaScripts())
    if (scripts.engine == engine) return scripts;
  throw UsageError("Das Datenbanksystem \"" + engine +
                   "\" ist unbekannt; möglich sind: " + list(schemaEngines()) + ".");
}

std::vector<std::string> schemaEngines() {
  std::vector<std::string> names;
  for (const app::SchemaScripts& scripts : app::allSchemaScripts())
    names.emplace_back(scripts.engine);
  std::sort(names.begin(), names.end());
  return names;
}

const app::SchemaScripts& schemaScriptsFor(Connection& connection) {
  return app::schemaScriptsOf(engineOf(connection));
}

}  // namespace vexnumkr::cli

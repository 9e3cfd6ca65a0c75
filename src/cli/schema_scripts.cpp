#include "cli/schema_scripts.h"

#include <algorithm>

#include <vexnumkr/engines.h>

#include "cli/schema_texts.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

std::string withoutComments(std::string_view script) {
  std::string result;
  while (!script.empty()) {
    const std::size_t end = std::min(script.find('\n'), script.size() - 1) + 1;
    if (!script.starts_with("--")) result += script.substr(0, end);
    script.remove_prefix(end);
  }
  return result;
}

std::string list(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

}  // namespace

const SchemaScripts& schemaScripts(const std::string& engine) {
  const auto* const found =
      std::find_if(std::begin(schema_text::engines), std::end(schema_text::engines),
                   [&](const SchemaScripts& scripts) { return scripts.engine == engine; });
  if (found != std::end(schema_text::engines)) return *found;
  throw UsageError("Das Datenbanksystem \"" + engine +
                   "\" ist unbekannt; möglich sind: " + list(schemaEngines()) + ".");
}

std::vector<std::string> schemaEngines() {
  std::vector<std::string> names;
  for (const SchemaScripts& scripts : schema_text::engines) names.emplace_back(scripts.engine);
  std::sort(names.begin(), names.end());
  return names;
}

const SchemaScripts& schemaScriptsFor(Connection& connection) {
  return schemaScripts(engineOf(connection));
}

std::vector<std::string> statementsOf(std::string_view script) {
  const std::string text = withoutComments(script);
  std::vector<std::string> result;
  std::size_t start = text.find_first_not_of('\n');
  for (std::size_t end = text.find(';'); end != std::string::npos; end = text.find(';', start)) {
    result.push_back(text.substr(start, end - start));
    start = std::min(text.find_first_not_of('\n', end + 1), text.size());
  }
  return result;
}

std::vector<std::string> paragraphsOf(std::string_view script) {
  const std::string text = withoutComments(script);
  std::vector<std::string> result;
  for (std::size_t start = text.find_first_not_of('\n'); start < text.size();
       start = text.find_first_not_of('\n', start)) {
    const std::size_t end = std::min(text.find(";\n\n", start), text.rfind(';'));
    result.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return result;
}

}  // namespace vexnumkr::cli

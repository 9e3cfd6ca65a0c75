#include "app/schema/schema.h"

#include <algorithm>

#include <vexnumkr/error.h>

#include "app/schema/schema_texts.h"

namespace vexnumkr::app {
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

}  // namespace

std::span<const SchemaScripts> allSchemaScripts() { return schema_text::all; }

const SchemaScripts& schemaScriptsOf(std::string_view engine) {
  for (const SchemaScripts& scripts : allSchemaScripts())
    if (scripts.engine == engine) return scripts;
  throw Error(error_number::unknownDriver, "vexnumkr-host",
              "Für das Datenbanksystem " + std::string(engine) + " gibt es keine Tabellen.");
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

std::vector<std::string> rangeTableStatements(std::string_view engine) {
  return statementsOf(schemaScriptsOf(engine).ranges);
}

std::vector<std::string> settingsTableStatements(std::string_view engine) {
  return statementsOf(schemaScriptsOf(engine).settings);
}

}  // namespace vexnumkr::app

#include "app/schema/schema.h"

#include <algorithm>
#include <string_view>

#include <vexnumkr/error.h>

#include "app/schema/schema_texts.h"

namespace vexnumkr::app {

namespace {

std::string withoutComments(std::string_view script) {
  std::string result;
  while (!script.empty()) {
    const std::size_t end = std::min(script.find('\n'), script.size() - 1) + 1;
    const std::string_view line = script.substr(0, end);
    if (line.substr(0, 2) != "--") result += line;
    script.remove_prefix(end);
  }
  return result;
}

std::vector<std::string> statements(std::string_view script) {
  const std::string text = withoutComments(script);
  std::vector<std::string> result;
  std::size_t start = text.find_first_not_of('\n');
  for (std::size_t end = text.find(';'); end != std::string::npos; end = text.find(';', start)) {
    result.push_back(text.substr(start, end - start));
    start = std::min(text.find_first_not_of('\n', end + 1), text.size());
  }
  return result;
}

const schema_text::Scripts& scriptsOf(std::string_view engine) {
  for (const schema_text::Scripts& scripts : schema_text::all)
    if (scripts.engine == engine) return scripts;
  throw Error(error_number::unknownDriver, "vexnumkr-host",
              "Für das Datenbanksystem " + std::string(engine) + " gibt es keine Tabellen.");
}

}  // namespace

std::vector<std::string> rangeTableStatements(std::string_view engine) {
  return statements(scriptsOf(engine).ranges);
}

std::vector<std::string> settingsTableStatements(std::string_view engine) {
  return statements(scriptsOf(engine).settings);
}

}  // namespace vexnumkr::app

#include "engines/engines.h"

#include <algorithm>

#include <vexnumkr/database.h>
#include <vexnumkr/engines.h>
#include <vexnumkr/error.h>

#include "engines/engine_list.h"
#include "platform/ascii_case.h"

namespace vexnumkr {
namespace {

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The first field of the first row.
std::optional<std::string> firstText(Connection& connection, const char* select) {
  try {
    std::int32_t found = 0;
    const auto rows = connection.Execute(select, found);
    if (rows->EndOfFile()) return std::nullopt;
    return rows->Fields("Fassung").toText();
  } catch (const Error&) {
    return std::nullopt;
  }
}

}  // namespace

std::span<const Engine* const> allEngines() { return engines::all; }

const Engine* engineOfDriverName(std::string_view name) {
  const std::string wanted = inLowerCase(name);
  const auto all = allEngines();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Engine* engine) {
    return std::any_of(engine->marks.begin(), engine->marks.end(),
                       [&](std::string_view mark) { return contains(wanted, mark); });
  });
  return found == all.end() ? nullptr : *found;
}

EngineDriver engineOfQtDriver(std::string_view name) {
  for (const Engine* const engine : allEngines())
    for (const QtDriver& driver : engine->drivers)
      if (equalsWithoutCase(driver.name, name)) return {engine, &driver};
  return {};
}

// A question that has failed once is not put again.
const Engine* engineThatAnswers(const AskText& ask) {
  std::string_view asked;
  std::optional<std::string> answer;
  for (const Engine* const engine : allEngines()) {
    if (asked != engine->versionQuery) answer = ask(engine->versionQuery);
    asked = engine->versionQuery;
    if (answer && contains(*answer, engine->versionMark)) return engine;
  }
  return nullptr;
}

const Engine* engineThatAnswers(Connection& connection) {
  return engineThatAnswers([&](const char* select) { return firstText(connection, select); });
}

bool meansLocked(const Error& error) {
  const std::string& source = error.source();
  return std::any_of(allEngines().begin(), allEngines().end(), [&](const Engine* engine) {
    const std::string_view code = std::string_view(source).substr(
        std::min(source.size(), engine->title.size() + std::string_view(" ").size()));
    return source.starts_with(engine->title) &&
           (engine->isLocked(code) || engine->isLocked(std::to_string(error.number())));
  });
}

std::string engineTitles(std::span<const Engine* const> engines) {
  std::string titles;
  for (std::size_t i = 0; i < engines.size(); ++i) {
    const char* const separator = i == 0 ? "" : i + 1 == engines.size() ? " und " : ", ";
    titles.append(separator).append(engines[i]->title);
  }
  return titles;
}

std::vector<std::string> engineNames() {
  std::vector<std::string> names;
  for (const Engine* const engine : allEngines()) names.emplace_back(engine->name);
  return names;
}

std::string engineOf(Connection& connection) {
  const Engine* const engine = engineThatAnswers(connection);
  if (engine != nullptr) return std::string(engine->name);
  throw Error(error_number::unknownDriver, "VEXNummernkreise",
              "Das Datenbanksystem wird nicht unterstützt; möglich sind " +
                  engineTitles(allEngines()) + ".");
}

std::string engineNamedIn(std::string_view connectionString) {
  const std::string driver = connectionValue(connectionString, "Driver");
  const Engine* engine = engineOfQtDriver(driver).engine;
  if (equalsWithoutCase(driver, "QODBC"))
    engine = engineOfDriverName(connectionValue(connectionValue(connectionString, "Database"),
                                                "Driver", ConnectionSyntax::odbc));
  return engine == nullptr ? std::string() : std::string(engine->name);
}

}  // namespace vexnumkr

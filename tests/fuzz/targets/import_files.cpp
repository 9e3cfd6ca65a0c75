// Files for `vexnumkr import`: what is accepted stands in the company as it stands in the file, and
// comes out again.
#include <cmath>
#include <string>

#include "cli/transfer/company_json.h"
#include "cli/usage_error.h"
#include "fuzz/support/input.h"
#include "fuzz/support/property.h"

namespace vexnumkr::fuzz {
namespace {

using cli::Json;

std::string withoutTrailingBlanks(std::string text) {
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

// Numbers as real ones, so that one that has lost its upper bits differs.
bool isSame(const Json& given, const Json& kept) {
  if (given.is_number() && kept.is_number()) return given.get<double>() == kept.get<double>();
  if (given.is_string() && kept.is_string())
    return withoutTrailingBlanks(given.get<std::string>()) == kept.get<std::string>();
  return given == kept;
}

// Every member of the company's own document stands in the file as well, unless it says nothing.
void checkKept(const Json& file, const Json& company, const std::string& text) {
  for (const auto& [name, kept] : company.items()) {
    const auto given = file.find(name);
    const bool isFree = kept.is_null() || name == "active";  // The standard circle's are active.
    require(isFree || (given != file.end() && isSame(*given, kept)),
            "a member is kept as it was given", {name, text});
  }
}

void checkRows(const Json& file, const Json& company, const std::string& text) {
  require(file.size() == company.size(), "every row is kept", {text});
  for (std::size_t i = 0; i < file.size(); ++i) checkKept(file[i], company[i], text);
}

void attack(const std::string& text, const std::string& content) {
  const numbers::Company company = cli::companyOf(content).company;
  const Json document = cli::documentOf(company, true);
  const Json file = Json::parse(content);
  require(isSame(file.at("application"), document.at("application")), "the application is kept",
          {text});
  for (const char* const list : {"circles", "ranges", "specialRanges"})
    checkRows(file.at(list), document.at(list), text);
  require(document.at("assignments").size() <= file.at("assignments").size(),
          "equal assignments are written once", {text});
  const Json again = cli::documentOf(cli::companyOf(document.dump()).company, true);
  require(again == document, "what is written can be read", {text});
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  // One choice nests what the file begins with, deeper than inputs are long.
  const std::size_t depth = input.choice(26) == 1 ? 100'000 : 0;
  const std::string text = input.rest();
  const std::string content =
      depth == 0 ? text
                 : R"({"format":)" + std::string(depth, '[') + text + std::string(depth, ']') + "}";
  try {
    attack(text, content);
  } catch (const vexnumkr::cli::UsageError& error) {
    const std::string_view told = error.what();
    require(told.starts_with("Die Datei") || told.starts_with("Das ist so nicht zu verwenden:\n"),
            "a refusal is about the file or its rows");
  }
  return 0;
}

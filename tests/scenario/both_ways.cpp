#include "scenario/both_ways.h"

#include <stdio.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "scenario/world/temporary_folder.h"
#include "support/fresh_database.h"

namespace vexnumkr::scenario {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

std::string run(const fs::path& driver, const std::string& scenario) {
  const TemporaryFolder folder;
  const test::FreshDatabase database;
  const fs::path file = fs::path(folder.path()) / "both_ways.scenario";
  std::ofstream(file, std::ios::binary) << scenario;
  const std::string command = quoted(driver.string()) + " --connection " +
                              quoted(database.connectionString()) + " " + quoted(file.string());
  FILE* output = popen(command.c_str(), "r");
  if (output == nullptr) throw std::runtime_error("the driver does not start");
  std::string transcript;
  char buffer[4096];
  for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, output)) > 0;)
    transcript.append(buffer, n);
  pclose(output);
  // Messages name the database.
  for (std::size_t at; (at = transcript.find(database.name())) != std::string::npos;)
    transcript.replace(at, database.name().size(), "DATENBANK");
  return transcript;
}

bool isStatement(const std::string& line) {
  return line.starts_with("conn: ") || line.starts_with("work: ");
}

std::string withoutStatements(const std::string& transcript) {
  std::istringstream in(transcript);
  std::string left;
  for (std::string line; std::getline(in, line);)
    if (!isStatement(line) && !line.starts_with("> access ")) left += line + '\n';
  return left;
}

Lines linesOf(const std::string& text) {
  std::istringstream in(text);
  Lines lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string around(const Lines& lines, std::size_t at) {
  std::string text;
  for (std::size_t i = at - std::min<std::size_t>(at, 5); i < std::min(at + 3, lines.size()); ++i)
    text += (i == at ? "> " : "  ") + lines[i] + '\n';
  return text;
}

}  // namespace

std::string BothWays::difference() const {
  if (rowByRow == inSets) return {};
  const Lines a = linesOf(rowByRow);
  const Lines b = linesOf(inSets);
  std::size_t at = 0;
  while (at < a.size() && at < b.size() && a[at] == b[at]) ++at;
  return "row by row:\n" + around(a, at) + "in sets:\n" + around(b, at);
}

BothWays runBothWays(const fs::path& driver, const std::string& scenario) {
  return {withoutStatements(run(driver, "access rows\n" + scenario)),
          withoutStatements(run(driver, "access sets\n" + scenario))};
}

}  // namespace vexnumkr::scenario

// run_scenarios [--update | --both-ways] FILE...: runs scenario files with the driver beside this
// program and compares what each prints with the .expected file beside it. With --update, the
// .expected files are written anew instead, for a deliberate change. With --both-ways, each is run
// row by row and in sets, and what is printed besides the statements is compared.
#include <stdio.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "scenario/both_ways.h"
#include "scenario/expected_transcript.h"
#include "support/fresh_database.h"

namespace {

namespace fs = std::filesystem;

constexpr int statusFailed = 3;
constexpr std::size_t contextLines = 3;

struct Result {
  std::string transcript;
  int status = -1;
};

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

// Messages name the database, which has another name each time.
std::string withoutName(std::string transcript, const std::string& name) {
  for (std::size_t at = transcript.find(name); at != std::string::npos; at = transcript.find(name))
    transcript.replace(at, name.size(), "DATENBANK");
  return transcript;
}

Result run(const fs::path& driver, const fs::path& scenario) {
  const vexnumkr::test::FreshDatabase database;
  Result result;
  const std::string command = quoted(driver.string()) + " --connection " +
                              quoted(database.connectionString()) + " " + quoted(scenario.string());
  FILE* output = popen(command.c_str(), "r");
  if (output == nullptr) return result;
  char buffer[4096];
  for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, output)) > 0;)
    result.transcript.append(buffer, n);
  const int status = pclose(output);
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
  result.transcript = withoutName(result.transcript, database.name());
  return result;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string lineAt(const std::vector<std::string>& lines, std::size_t i) {
  return i < lines.size() ? lines[i] : "(nothing: the transcript ends here)";
}

void printFirstDifference(const std::string& expectedText, const std::string& actualText) {
  const auto expected = linesOf(expectedText);
  const auto actual = linesOf(actualText);
  std::size_t first = 0;
  while (first < expected.size() && first < actual.size() && expected[first] == actual[first])
    ++first;
  std::cout << "first difference in line " << first + 1 << ":\n";
  for (std::size_t i = first - std::min(first, contextLines); i < first; ++i)
    std::cout << "    " << expected[i] << '\n';
  std::cout << "  - " << lineAt(expected, first) << '\n' << "  + " << lineAt(actual, first) << '\n';
  for (std::size_t i = first + 1; i < std::min(actual.size(), first + 1 + contextLines); ++i)
    std::cout << "    " << actual[i] << '\n';
}

// A scenario that could not be carried out to its end says so in its last line.
int statusOf(const std::string& transcript) {
  const auto lines = linesOf(transcript);
  return !lines.empty() && lines.back().rfind("failed: ", 0) == 0 ? statusFailed : 0;
}

bool passes(const Result& result, const fs::path& scenario) {
  const auto expected =
      vexnumkr::scenario::expectedTranscript(scenario, vexnumkr::test::engineUnderTest());
  if (!expected) {
    std::cout << "there is no expected transcript that fits " << scenario.string() << '\n';
    return false;
  }
  if (result.transcript != *expected) {
    printFirstDifference(*expected, result.transcript);
    return false;
  }
  if (result.status == statusOf(result.transcript)) return true;
  std::cout << "exit status " << result.status << '\n';
  return false;
}

bool isSameBothWays(const fs::path& driver, const fs::path& scenario) {
  std::ifstream in(scenario, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(in), {});
  const std::string difference = vexnumkr::scenario::runBothWays(driver, text).difference();
  std::cout << difference;
  return difference.empty();
}

// The .expected file on SQLite, the engine's own lines elsewhere.
bool update(const Result& result, const fs::path& scenario) {
  const std::string engine = vexnumkr::test::engineUnderTest();
  if (engine != "sqlite")
    return vexnumkr::scenario::writeEngineLines(scenario, engine, result.transcript);
  std::ofstream(fs::path(scenario).replace_extension(".expected"), std::ios::binary)
      << result.transcript;
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const fs::path driver = fs::path(argv[0]).parent_path() / "vexnumkr-scenario";
  std::vector<std::string> words(argv + 1, argv + argc);
  const std::string option = !words.empty() && words[0].starts_with("--") ? words[0] : "";
  if (!option.empty()) words.erase(words.begin());
  if (words.empty() || (!option.empty() && option != "--update" && option != "--both-ways")) {
    std::cerr << "usage: run_scenarios [--update | --both-ways] FILE...\n";
    return 2;
  }
  bool allPass = true;
  for (const fs::path scenario : words) {
    const bool isRight = option == "--both-ways" ? isSameBothWays(driver, scenario)
                         : option == "--update"  ? update(run(driver, scenario), scenario)
                                                 : passes(run(driver, scenario), scenario);
    if (isRight) continue;
    std::cout << "FAILED: " << scenario.string() << '\n';
    allPass = false;
  }
  return allPass ? 0 : 1;
}

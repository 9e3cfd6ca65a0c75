// run_scenarios [--update] FILE...: runs scenario files with the driver beside this program and
// compares what each prints with the .expected file beside it. With --update, the .expected files
// are written anew instead, for a deliberate change.
#include <stdio.h>
#include <sys/wait.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

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

Result run(const fs::path& driver, const fs::path& scenario) {
  Result result;
  const std::string command = quoted(driver.string()) + " " + quoted(scenario.string());
  FILE* output = popen(command.c_str(), "r");
  if (output == nullptr) return result;
  char buffer[4096];
  for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, output)) > 0;)
    result.transcript.append(buffer, n);
  const int status = pclose(output);
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
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

std::optional<std::string> contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

bool passes(const Result& result, const fs::path& expectedFile) {
  const auto expected = contentOf(expectedFile);
  if (!expected) {
    std::cout << "there is no " << expectedFile.string() << '\n';
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

}  // namespace

int main(int argc, char** argv) {
  const fs::path driver = fs::path(argv[0]).parent_path() / "vexnumkr-scenario";
  std::vector<std::string> words(argv + 1, argv + argc);
  const bool updates = !words.empty() && words[0] == "--update";
  if (updates) words.erase(words.begin());
  if (words.empty()) {
    std::cerr << "usage: run_scenarios [--update] FILE...\n";
    return 2;
  }
  bool allPass = true;
  for (const fs::path scenario : words) {
    const fs::path expectedFile = fs::path(scenario).replace_extension(".expected");
    const Result result = run(driver, scenario);
    if (updates) {
      std::ofstream(expectedFile, std::ios::binary) << result.transcript;
    } else if (!passes(result, expectedFile)) {
      std::cout << "FAILED: " << scenario.string() << '\n';
      allPass = false;
    }
  }
  return allPass ? 0 : 1;
}

#include "scenario/expected_transcript.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

namespace vexnumkr::scenario {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using Pairs = std::vector<std::pair<std::string, std::string>>;

constexpr const char* before = "- ";
constexpr const char* after = "+ ";

std::optional<std::string> contentOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

Lines linesOf(const std::string& text) {
  Lines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string textOf(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

fs::path linesFile(const fs::path& scenario, const std::string& engine) {
  return fs::path(scenario).replace_extension("." + engine);
}

std::optional<Pairs> pairsOf(const Lines& lines) {
  if (lines.size() % 2 != 0) return std::nullopt;
  Pairs pairs;
  for (std::size_t i = 0; i < lines.size(); i += 2) {
    if (!lines[i].starts_with(before) || !lines[i + 1].starts_with(after)) return std::nullopt;
    pairs.emplace_back(lines[i].substr(2), lines[i + 1].substr(2));
  }
  return pairs;
}

// Each pair stands for the next line like its first; one that finds none spoils the whole.
std::optional<std::string> exchanged(Lines lines, const Pairs& pairs) {
  auto next = pairs.begin();
  for (std::string& line : lines)
    if (next != pairs.end() && line == next->first) line = (next++)->second;
  if (next != pairs.end()) return std::nullopt;
  return textOf(lines);
}

}  // namespace

std::optional<std::string> expectedTranscript(const fs::path& scenario, const std::string& engine) {
  const auto expected = contentOf(fs::path(scenario).replace_extension(".expected"));
  const auto own = contentOf(linesFile(scenario, engine));
  if (!expected || !own) return expected;
  const auto pairs = pairsOf(linesOf(*own));
  if (!pairs) return std::nullopt;
  return exchanged(linesOf(*expected), *pairs);
}

bool writeEngineLines(const fs::path& scenario, const std::string& engine,
                      const std::string& transcript) {
  const auto text = contentOf(fs::path(scenario).replace_extension(".expected"));
  const Lines expected = linesOf(text.value_or(std::string()));
  const Lines actual = linesOf(transcript);
  if (expected.size() != actual.size()) return false;
  Lines pairs;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (expected[i] == actual[i]) continue;
    pairs.push_back(before + expected[i]);
    pairs.push_back(after + actual[i]);
  }
  fs::remove(linesFile(scenario, engine));
  if (!pairs.empty()) std::ofstream(linesFile(scenario, engine), std::ios::binary) << textOf(pairs);
  return true;
}

}  // namespace vexnumkr::scenario

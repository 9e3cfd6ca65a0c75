#include "manual/source_texts.h"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>

namespace vexnumkr::test {

namespace {

const std::string placeholder = "…";

bool isBlank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

/// Walks over a source and collects its literals.
class Scanner {
 public:
  explicit Scanner(const std::string& source) : source_(source) {}

  std::vector<std::string> literals() {
    while (at_ < source_.size()) step();
    return found_;
  }

 private:
  bool startsWith(const char* text) const { return source_.compare(at_, 2, text) == 0; }

  void step() {
    const char c = source_[at_];
    if (startsWith("//")) {
      at_ = std::min(source_.find('\n', at_), source_.size());
    } else if (startsWith("/*")) {
      at_ = std::min(source_.find("*/", at_) + 2, source_.size());
    } else if (c == '\'') {
      at_ += source_[at_ + 1] == '\\' ? 4 : 3;
      adjacent_ = false;
    } else if (c == '"') {
      literal();
    } else {
      if (!isBlank(c)) adjacent_ = false;
      ++at_;
    }
  }

  void literal() {
    std::string text;
    for (++at_; at_ < source_.size() && source_[at_] != '"'; ++at_) {
      if (source_[at_] != '\\') {
        text += source_[at_];
      } else {
        const char escaped = source_[++at_];
        text += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped;
      }
    }
    ++at_;
    if (adjacent_) {
      found_.back() += text;
    } else {
      found_.push_back(text);
    }
    adjacent_ = true;
  }

  const std::string& source_;
  std::size_t at_ = 0;
  bool adjacent_ = false;
  std::vector<std::string> found_;
};

std::string trimmed(const std::string& text) {
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

std::string withoutNumbers(std::string text) {
  for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1)) {
    if (at + 1 < text.size() && std::isdigit(static_cast<unsigned char>(text[at + 1])) != 0)
      text.replace(at, 2, placeholder);
  }
  return text;
}

}  // namespace

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << file;
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> literalsOf(const std::string& source) {
  return Scanner(source).literals();
}

std::vector<std::string> literalsBelow(const std::filesystem::path& folder) {
  if (!std::filesystem::is_directory(folder)) return literalsOf(contentOf(folder));
  std::vector<std::string> all;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".cpp" && extension != ".h") continue;
    for (std::string& text : literalsOf(contentOf(entry.path()))) all.push_back(std::move(text));
  }
  return all;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string line = withoutNumbers(trimmed(text.substr(begin, end - begin)));
    if (!line.empty()) lines.push_back(line);
    begin = end + 1;
  }
  return lines;
}

std::string inOneLine(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (!isBlank(c)) {
      result += c;
    } else if (!result.empty() && result.back() != ' ') {
      result += ' ';
    }
  }
  return result;
}

}  // namespace vexnumkr::test

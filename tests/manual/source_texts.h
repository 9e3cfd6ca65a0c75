// The texts in source files, for comparing them with what the manual says.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vexnumkr::test {

/// The whole content of a file. REQUIRES: it can be read.
std::string contentOf(const std::filesystem::path& file);

/// The string literals of a C++ source, those that stand one behind the other joined.
std::vector<std::string> literalsOf(const std::string& source);

/// The literals of all sources in and below `folder`, or of the one file that it is.
std::vector<std::string> literalsBelow(const std::filesystem::path& folder);

/// The lines of a text, without blanks around them and without empty ones; a placeholder such as %1
/// reads "…".
std::vector<std::string> linesOf(const std::string& text);

/// `text` with each run of blanks and line breaks as one blank.
std::string inOneLine(const std::string& text);

}  // namespace vexnumkr::test

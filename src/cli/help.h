// The help of the program and of each command.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace vexnumkr::cli {

/// An example first, then the options; German.
class HelpFormatter : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override;
};

/// "vexnumkr draw": the program's name and the words of the command.
std::string calledAs(const CLI::App& command);

/// Of `known`, the word that was probably meant by `word`; empty where none is near.
std::string nearest(const std::string& word, const std::vector<std::string>& known);

}  // namespace vexnumkr::cli

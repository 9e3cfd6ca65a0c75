#include "cli/help.h"

#include <algorithm>
#include <numeric>

#include "cli/text_table.h"

namespace vexnumkr::cli {
namespace {

constexpr std::size_t firstColumn = 28;
constexpr std::size_t lineWidth = 100;

// The words of `text` in lines, all but the first indented.
std::string wrapped(const std::string& text) {
  std::string result;
  std::size_t column = firstColumn;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    const std::string word = text.substr(start, end - start);
    if (column > firstColumn && column + 1 + widthOf(word) > lineWidth) {
      result += '\n' + std::string(firstColumn, ' ');
      column = firstColumn;
    } else if (column > firstColumn) {
      result += ' ';
      ++column;
    }
    result += word;
    column += widthOf(word);
    start = end + 1;
  }
  return result;
}

std::string entry(const std::string& name, const std::string& description) {
  std::string line = "  " + name;
  const std::size_t width = widthOf(line);
  line += width + 2 > firstColumn ? '\n' + std::string(firstColumn, ' ')
                                  : std::string(firstColumn - width, ' ');
  return line + wrapped(description) + '\n';
}

std::string optionName(const CLI::Option& option) {
  const std::string value = option.get_option_text();
  return option.get_name(option.get_positional(), true) + (value.empty() ? "" : " " + value);
}

std::string optionsOf(const CLI::App& app) {
  std::string text;
  for (const CLI::Option* option : app.get_options())
    text += entry(option->get_positional() ? option->get_option_text() : optionName(*option),
                  option->get_description() + (option->get_required() ? " (nötig)" : ""));
  return text.empty() ? text : "\nAngaben:\n" + text;
}

std::string commandsOf(const CLI::App& app) {
  std::string text;
  for (const CLI::App* command : app.get_subcommands({}))
    text += entry(command->get_name(), command->get_description());
  return text.empty() ? text : "\nBefehle:\n" + text;
}

// The steps that turn one word into the other: a letter left out, added or exchanged.
std::size_t distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t exchanged = diagonal + (a[i - 1] == b[j - 1] ? 0U : 1U);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, exchanged});
    }
  }
  return row.back();
}

}  // namespace

std::string calledAs(const CLI::App& command) {
  const CLI::App* const parent = command.get_parent();
  return parent == nullptr ? command.get_name() : calledAs(*parent) + " " + command.get_name();
}

std::string HelpFormatter::make_help(const CLI::App* app, std::string /*name*/,
                                     CLI::AppFormatMode /*mode*/) const {
  const bool isGroup = !app->get_subcommands({}).empty();
  std::string text;
  if (!app->get_footer().empty()) text += "Beispiel:\n" + app->get_footer() + "\n\n";
  text += app->get_description() + "\n\nAufruf: " + calledAs(*app) + (isGroup ? " BEFEHL" : "") +
          " [Angaben]\n" + commandsOf(*app) + optionsOf(*app);
  if (isGroup) text += "\nJeder Befehl erklärt sich mit: " + calledAs(*app) + " BEFEHL --help\n";
  if (app->get_parent() == nullptr)
    text +=
        "Aufgaben mit Beispielen stehen im Handbuch für Administratoren: verwaltung, im Paket\n"
        "vexnumkr-doc oder im Ordner docs der Quellen.\n";
  return text +
         "\nRückgabewert: 0 in Ordnung · 1 es gibt Befunde · 2 falscher Aufruf · 3 Datenbank\n";
}

std::string nearest(const std::string& word, const std::vector<std::string>& known) {
  std::string found;
  std::size_t best = std::max<std::size_t>(word.size() / 2, 2);
  for (const std::string& candidate : known) {
    const std::size_t steps = distance(word, candidate);
    // What has no letter in common is not what was meant.
    if (steps >= std::min(word.size(), candidate.size())) continue;
    if (steps > best || (steps == best && !found.empty())) continue;
    best = steps;
    found = candidate;
  }
  return found;
}

}  // namespace vexnumkr::cli

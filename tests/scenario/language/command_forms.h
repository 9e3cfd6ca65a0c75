// The commands of the scenario language and what may follow each.
#pragma once

#include <string>
#include <string_view>

#include "scenario/language/script.h"

namespace vexnumkr::scenario {

/// Fills name and arguments of a command from its text.
/// Error: WordError, for an unknown command, words that fit none of its forms, and a word that is
/// not what its form asks for.
void matchForm(Command& command);

/// Whether `word` is a number as commands take them: an optional minus and digits, within 32 bits.
bool isNumberWord(std::string_view word);

}  // namespace vexnumkr::scenario

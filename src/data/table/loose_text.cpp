#include "data/table/loose_text.h"

namespace vexnumkr {
namespace {

// The letters U+00C0 to U+017F, small and without their accents; a dot for those that are other
// letters, or none.
constexpr std::string_view letters =
    "aaaaaa.ceeeeiiiidnooooo.ouuuuy.saaaaaa.ceeeeiiiidnooooo.ouuuuy.y"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii..jjkkklllllll"
    "lllnnnnnnnnnoooooo..rrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
constexpr std::uint32_t firstLetter = 0xC0;

// Of the UTF-8 sequence at the beginning of `text`, which it is removed from.
std::uint32_t takeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const std::size_t size = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
  std::uint32_t character = size == 1 ? byte(0) : byte(0) & (0x7FU >> size);
  std::size_t used = 1;
  for (; used < size && used < text.size(); ++used)
    character = character << 6 | (byte(used) & 0x3FU);
  text.remove_prefix(used);
  return character;
}

bool isCombiningAccent(std::uint32_t character) { return character >= 0x300 && character < 0x370; }

char looseAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Other alphabets have cases and accents too: a letter of theirs is only known to be one.
constexpr char anyOther = '\x01';

char looseCharacter(std::uint32_t character) {
  if (character < 0x80) return looseAscii(static_cast<char>(character));
  if (character >= firstLetter && character < firstLetter + letters.size()) {
    const char letter = letters[character - firstLetter];
    if (letter != '.') return letter;
  }
  return anyOther;
}

}  // namespace

std::string looseText(std::string_view text) {
  std::string loose;
  loose.reserve(text.size());
  while (!text.empty()) {
    const std::uint32_t character = takeCharacter(text);
    if (!isCombiningAccent(character)) loose += looseCharacter(character);
  }
  loose.erase(loose.find_last_not_of(' ') + 1);
  return loose;
}

LooseNames::Number LooseNames::add(std::string_view name) {
  if (const Number known = find(name); known != none) return known;
  const auto number = static_cast<Number>(numbers_.size());
  numbers_.emplace(name, number);
  std::vector<Number>& similar = loose_[looseText(name)];
  similar.push_back(number);
  looseOf_.push_back(&similar);
  return number;
}

LooseNames::Number LooseNames::find(std::string_view name) const {
  const auto found = numbers_.find(name);
  return found == numbers_.end() ? none : found->second;
}

std::span<const LooseNames::Number> LooseNames::similar(std::string_view name) const {
  const auto found = loose_.find(looseText(name));
  if (found == loose_.end()) return {};
  return found->second;
}

}  // namespace vexnumkr

#include "data/table/loose_text.h"

namespace vexnumkr {
namespace {

// The letters U+00C0 to U+017F, small and without their accents, ligatures by their first letter; a
// dot for what is no letter, or one with rules of its own.
constexpr std::string_view letters =
    "aaaaaaaceeeeiiiidnooooo.ouuuuy.saaaaaaaceeeeiiiidnooooo.ouuuuy.y"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii..jjkk.llllll."
    ".llnnnnnn.nnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
constexpr char32_t firstLetter = 0xC0;
constexpr char anyOther = '\x01';

// Of the UTF-8 sequence at the beginning of `text`, which it is removed from.
char32_t takeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const std::size_t size = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
  char32_t character = size == 1 ? byte(0) : byte(0) & (0x7FU >> size);
  std::size_t used = 1;
  for (; used < size && used < text.size(); ++used)
    character = character << 6 | (byte(used) & 0x3FU);
  text.remove_prefix(used);
  return character;
}

bool isIn(char32_t character, char32_t first, char32_t last) {
  return character >= first && character <= last;
}

// Control characters, the soft hyphen and combining accents.
bool isIgnored(char32_t character) {
  return character < ' ' || isIn(character, 0x7F, 0x9F) || character == 0xAD ||
         isIn(character, 0x300, 0x36F);
}

char looseAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Nothing where only the column knows.
std::optional<char> looseCharacter(char32_t character) {
  constexpr char32_t blankWithoutBreak = 0xA0;
  constexpr char32_t capitalSharpS = 0x1E9E;
  if (character < 0x80) return looseAscii(static_cast<char>(character));
  if (character == blankWithoutBreak) return ' ';
  if (character == capitalSharpS) return 's';
  // Greek and Cyrillic letters have cases and accents too, but are never those of other alphabets.
  if (isIn(character, 0x370, 0x52F)) return anyOther;
  const char32_t place = character - firstLetter;
  if (character < firstLetter || place >= letters.size() || letters[place] == '.') return {};
  return letters[place];
}

// "ae" stands for "ä" as "ss" for "ß".
bool belongsTo(char before, char c) {
  constexpr std::string_view withUmlaut = "aou";
  const bool isLetter = before >= 'a' && before <= 'z';
  return isLetter && (c == before || (c == 'e' && withUmlaut.find(before) != withUmlaut.npos));
}

}  // namespace

std::optional<std::string> looseText(std::string_view text) {
  std::string loose;
  loose.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = takeCharacter(text);
    if (isIgnored(character)) continue;
    const auto c = looseCharacter(character);
    if (!c) return {};
    if (loose.empty() || !belongsTo(loose.back(), *c)) loose += *c;
  }
  loose.erase(loose.find_last_not_of(' ') + 1);
  return loose;
}

LooseNames::Number LooseNames::add(std::string_view name) {
  if (const Number known = find(name); known != none) return known;
  const auto number = static_cast<Number>(numbers_.size());
  numbers_.emplace(name, number);
  all_.push_back(number);
  if (const auto loose = looseText(name)) {
    std::vector<Number>& similar = loose_.try_emplace(*loose, withoutLoose_).first->second;
    similar.push_back(number);
    looseOf_.push_back(&similar);
  } else {
    for (auto& [other, similar] : loose_) similar.push_back(number);
    withoutLoose_.push_back(number);
    looseOf_.push_back(&all_);
  }
  return number;
}

LooseNames::Number LooseNames::find(std::string_view name) const {
  const auto found = numbers_.find(name);
  return found == numbers_.end() ? none : found->second;
}

std::span<const LooseNames::Number> LooseNames::similar(std::string_view name) const {
  const auto loose = looseText(name);
  if (!loose) return all_;
  const auto found = loose_.find(*loose);
  return found == loose_.end() ? withoutLoose_ : found->second;
}

}  // namespace vexnumkr

// Finding the passwords in connection strings, and taking them out of texts.
#include <algorithm>
#include <array>
#include <numeric>
#include <optional>

#include <vexnumkr/connection_string.h>
#include <vexnumkr/value.h>

#include "platform/ascii_case.h"
#include "platform/connection_entries.h"

namespace vexnumkr {
namespace {

constexpr std::string_view mask = "***";
constexpr std::array<std::string_view, 3> passwordWords = {"pwd", "password", "passphrase"};

bool endsInPasswordWord(std::string_view text) {
  return std::any_of(passwordWords.begin(), passwordWords.end(), [&](std::string_view word) {
    return text.size() >= word.size() &&
           equalsWithoutCase(text.substr(text.size() - word.size()), word);
  });
}

bool isNativeKey(std::string_view key) {
  return std::any_of(nativeKeys.begin(), nativeKeys.end(),
                     [&](std::string_view name) { return equalsWithoutCase(key, name); });
}

// Marks the passwords of one connection string, and collects them.
class PasswordFinder {
 public:
  explicit PasswordFinder(std::string_view text) : hidden_(text.size(), false) {
    std::vector<std::size_t> places(text.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    read(text, places, ConnectionSyntax::native, 0);
    read(text, places, ConnectionSyntax::oleDb, 0);
  }

  std::vector<TextRange> ranges() const {
    std::vector<TextRange> found;
    for (std::size_t i = 0; i < hidden_.size(); ++i) {
      if (!hidden_[i]) continue;
      if (found.empty() || found.back().end != i) found.push_back({i, i});
      found.back().end = i + 1;
    }
    return found;
  }
  const std::vector<std::string>& passwords() const { return passwords_; }

 private:
  using Places = std::vector<std::size_t>;

  static constexpr int deepest = 8;  // Nobody means a string inside so many others.

  // Marks [begin, end) of a text whose characters have those places.
  void hide(const Places& places, std::size_t begin, std::size_t end) {
    if (begin >= end) return;
    std::fill(hidden_.begin() + static_cast<std::ptrdiff_t>(places[begin]),
              hidden_.begin() + static_cast<std::ptrdiff_t>(places[end - 1]) + 1, true);
  }

  void read(std::string_view text, const Places& places, ConnectionSyntax syntax, int depth) {
    ConnectionEntries entries(text, syntax);
    std::optional<std::size_t> password;  // Where the one begins that may still go on.
    bool isNative = syntax == ConnectionSyntax::native;
    for (ConnectionEntry entry; entries.next(entry);) {
      const bool goesOn = !entry.hasSign || (isNative && !isNativeKey(entry.key));
      if (entry.hasSign && endsInPasswordWord(entry.key)) {
        // A piece of one that goes on may look like the key of another.
        if (!password || !goesOn) password = entry.begin;
        passwords_.push_back(entry.value);
      } else if (!goesOn) {
        password.reset();
      }
      if (password)
        hide(places, *password, entry.end);
      else if (entry.hasSign)
        readInside(entry, places, depth);
      if (!password && goesOn) isNative = false;
    }
  }

  void readInside(const ConnectionEntry& entry, const Places& places, int depth) {
    if (entry.value.find('=') == std::string::npos) return;
    if (depth == deepest) return hide(places, entry.begin, entry.end);
    Places inside(entry.places.size());
    std::transform(entry.places.begin(), entry.places.end(), inside.begin(),
                   [&](std::size_t place) { return places[place]; });
    read(entry.value, inside, ConnectionSyntax::oleDb, depth + 1);
  }

  std::vector<bool> hidden_;
  std::vector<std::string> passwords_;
};

std::string doubled(std::string_view value, char mark) {
  std::string result;
  for (const char c : value) result.append(c == mark ? 2 : 1, c);
  return result;
}

// Without the marks that may enclose it.
std::ptrdiff_t characterCount(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char c) {
    constexpr std::string_view marks = "\"'{}";
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80 && marks.find(c) == marks.npos;
  });
}

// Texts to be found in another one, each where it begins.
class Forms {
 public:
  // REQUIRES: `form` is not empty.
  void add(std::string form) {
    begins_[static_cast<unsigned char>(form.front())] = true;
    forms_.push_back(std::move(form));
  }
  void sort() {
    std::sort(forms_.begin(), forms_.end(), [](const std::string& a, const std::string& b) {
      return a.size() != b.size() ? a.size() > b.size() : a < b;
    });
    forms_.erase(std::unique(forms_.begin(), forms_.end()), forms_.end());
  }
  // The length of the longest that stands there, or 0. REQUIRES: sorted, and `at` in the message.
  std::size_t longest(std::string_view message, std::size_t at) const {
    if (!begins_[static_cast<unsigned char>(message[at])]) return 0;
    const auto found = std::find_if(forms_.begin(), forms_.end(), [&](const std::string& form) {
      return message.compare(at, form.size(), form) == 0;
    });
    return found == forms_.end() ? 0 : found->size();
  }

 private:
  std::vector<std::string> forms_;
  std::array<bool, 256> begins_{};  // The first bytes of all of them.
};

// The texts to be masked: those long enough to be no accident, and the others.
struct Secrets {
  Forms anywhere;
  Forms behindKeys;
  Forms inQuotes;

  void add(const std::string& password) {
    if (password.empty()) return;
    Forms& forms = isShort(password) ? behindKeys : anywhere;
    const std::string inBraces = '{' + doubled(password, '}') + '}';
    for (const std::string& form :
         {password, '"' + doubled(password, '"') + '"', inBraces, doubled(password, '}')}) {
      forms.add(form);
      forms.add(doubled(form, '"'));
    }
    addWords(password);
  }
  void sort() {
    for (Forms* const forms : {&anywhere, &behindKeys, &inQuotes}) forms->sort();
  }

 private:
  static bool isShort(std::string_view text) { return characterCount(text) < 3; }

  // What takes a password apart at its blanks may tell of one of its words.
  void addWords(std::string_view password) {
    static constexpr std::string_view separators = " =";
    if (password.find_first_of(separators) == std::string_view::npos) return;
    while (!password.empty()) {
      const std::size_t end = std::min(password.find_first_of(separators), password.size());
      if (end > 0)
        (isShort(password.substr(0, end)) ? inQuotes : anywhere)
            .add(std::string(password.substr(0, end)));
      password.remove_prefix(std::min(end + 1, password.size()));
    }
  }
};

bool isWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// Copies a message without the secrets in it.
class Masking {
 public:
  Masking(std::string_view message, const Secrets& secrets)
      : message_(message), secrets_(secrets) {}

  std::string result() {
    std::string text;
    for (std::size_t at = 0; at < message_.size();) {
      const std::size_t length = secretAt(at);
      if (length == 0)
        text += message_[at++];
      else
        text += mask;
      at += length;
    }
    return text;
  }

 private:
  // The length of the secret that begins there, or 0.
  std::size_t secretAt(std::size_t at) const {
    if (const std::size_t length = secrets_.anywhere.longest(message_, at)) return length;
    if (isBehindKey(at)) {
      const std::size_t length = secrets_.behindKeys.longest(message_, at);
      if (length > 0 && !isWordCharacter(character(at + length))) return length;
    }
    if (at > 0 && message_[at - 1] == '"') {
      const std::size_t length = secrets_.inQuotes.longest(message_, at);
      if (length > 0 && character(at + length) == '"') return length;
    }
    return 0;
  }

  char character(std::size_t at) const { return at < message_.size() ? message_[at] : '\0'; }

  bool isBehindKey(std::size_t at) const {
    std::string_view before = trimEnd(message_.substr(0, at));
    if (before.empty() || before.back() != '=') return false;
    before.remove_suffix(1);
    return endsInPasswordWord(trimEnd(before));
  }
  static std::string_view trimEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
  }

  std::string_view message_;
  const Secrets& secrets_;
};

}  // namespace

std::vector<TextRange> passwordRanges(std::string_view connectionString) {
  return PasswordFinder(connectionString).ranges();
}

std::string maskedConnectionString(std::string_view connectionString) {
  std::string text;
  std::size_t at = 0;
  for (const TextRange& range : passwordRanges(connectionString)) {
    text.append(connectionString.substr(at, range.begin - at)).append(mask);
    at = range.end;
  }
  return text.append(connectionString.substr(at));
}

std::string withoutPasswords(std::string_view message, std::string_view connectionString) {
  const PasswordFinder finder(connectionString);
  Secrets secrets;
  for (const std::string& password : finder.passwords()) secrets.add(password);
  for (const TextRange& range : finder.ranges())
    secrets.add(std::string(connectionString.substr(range.begin, range.end - range.begin)));
  secrets.sort();
  return Masking(message, secrets).result();
}

}  // namespace vexnumkr

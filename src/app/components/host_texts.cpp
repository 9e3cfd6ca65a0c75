#include "app/components/host_texts.h"

#include <array>
#include <string_view>

#include <vexnumkr/error.h>

#include "app/components/window_icon.h"

namespace vexnumkr::app {
namespace {

struct Entry {
  std::int32_t id;
  std::string_view text;  ///< %1 to %9 are placeholders
};

constexpr std::array<Entry, 1> entries{{{10055, "%1: "}}};

constexpr std::int32_t windowIconId = 267;
constexpr int windowIconSize = 256;

std::string_view entry(std::int32_t id) {
  for (const Entry& candidate : entries)
    if (candidate.id == id) return candidate.text;
  throw Error::subscriptOutOfRange();
}

bool isPlaceholder(std::string_view text, std::size_t at) {
  return text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9';
}

}  // namespace

std::string TextCatalogue::Text(std::int32_t id, const std::vector<Value>& parameters) {
  const std::string_view text = entry(id);
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!isPlaceholder(text, at)) {
      result += text[at];
      continue;
    }
    ++at;
    const auto parameter = static_cast<std::size_t>(text[at] - '1');
    if (parameter < parameters.size()) result += parameters[parameter].toText();
  }
  return result;
}

PictureData TextCatalogue::Picture(std::int32_t id) {
  if (id != windowIconId) throw Error::subscriptOutOfRange();
  return {windowIconPng(windowIconSize)};
}

}  // namespace vexnumkr::app

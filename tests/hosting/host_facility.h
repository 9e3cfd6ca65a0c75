// A host with a text catalogue and a message facility that note what they are asked.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <vexnumkr/error.h>
#include <vexnumkr/host_components.h>

namespace vexnumkr::test {

/// Each call leaves a line; the call whose line begins with `failing` fails. Its texts are
/// "<id>(<parameters>)", its boxes are answered with `answer`.
class HostFacility final : public HostComponents, private HostTexts, private HostMessages {
 public:
  std::string failing;
  std::int32_t answer = 0;

  std::vector<std::string> takeCalls() { return std::exchange(calls_, {}); }

  std::unique_ptr<HostComponent> CreateObject(const std::string& /*name*/) override {
    throw Error::cannotCreateObject();
  }
  HostTexts* Texts() override {
    failIfWanted("Texts");
    return this;
  }
  HostMessages* Messages() override {
    failIfWanted("Messages");
    return this;
  }

 private:
  std::string Text(std::int32_t id, const std::vector<Value>& parameters) override {
    std::string text = std::to_string(id) + "(";
    for (const Value& parameter : parameters) text += parameter.toText() + ")";
    called("Text " + text);
    return text;
  }
  PictureData Picture(std::int32_t /*id*/) override { return {}; }

  void ErrorNumber(std::int32_t number) override {
    called("ErrorNumber " + std::to_string(number));
  }
  Value Prepare(const Value& text, std::int16_t kind, const std::optional<Value>& third) override {
    called("Prepare " + text.toText() + ", " + std::to_string(kind) + ", " + written(third));
    return {};
  }
  std::int32_t Show(const Value& text, std::int16_t kind, const std::optional<Value>& source,
                    std::int32_t buttons, const std::optional<Value>& title, bool flag) override {
    called("Show " + text.toText() + ", " + std::to_string(kind) + ", " + written(source) + ", " +
           std::to_string(buttons) + ", " + written(title) + ", " + (flag ? "True" : "False"));
    return answer;
  }

  static std::string written(const std::optional<Value>& value) {
    return value ? value->toText() : "none";
  }
  void called(const std::string& line) {
    calls_.push_back(line);
    failIfWanted(line);
  }
  void failIfWanted(const std::string& line) const {
    if (!failing.empty() && line.starts_with(failing)) throw Error(4711, "host", "kaputt");
  }

  std::vector<std::string> calls_;
};

}  // namespace vexnumkr::test

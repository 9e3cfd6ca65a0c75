// A host with every component that the dialogs ask for.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/host_components.h>

#include "support/plain_host.h"

namespace vexnumkr::test {

/// What the settings store of a DialogHost holds, keys in small letters, and what it was told.
struct SettingsCalls {
  std::map<std::string, std::string> values;
  std::vector<std::string> calls;
  std::vector<const Connection*> connections;
  std::string failing;  // the member that fails, with error 4712
  /// Runs whenever a setting is saved, with the connection of the store.
  std::function<void(Connection&)> whenSaved;

  void enter(const char* member) const {
    if (failing == member) throw Error(4712, "Host", "Der Host versagt");
  }
};

class KeptSettings final : public SettingsStore {
 public:
  explicit KeptSettings(SettingsCalls& calls) : calls_(calls) {}

  void Init(std::int32_t reserved, Connection& connection) override {
    calls_.enter("Init");
    calls_.calls.push_back("Init " + std::to_string(reserved));
    calls_.connections.push_back(&connection);
    connection_ = &connection;
  }
  void GetSetting(const std::string& section, const std::string& key, std::string& value,
                  const std::string& profile, const std::string& user,
                  const std::string& defaultValue) override {
    calls_.enter("GetSetting");
    calls_.calls.push_back("Get " + section + " " + key + " " + profile + " " + user + " " +
                           defaultValue);
    const auto found = calls_.values.find(inSmallLetters(key));
    value = found == calls_.values.end() ? defaultValue : found->second;
  }
  void SaveSetting(const std::string& section, const std::string& key, const std::string& value,
                   const std::string& profile) override {
    calls_.enter("SaveSetting");
    calls_.calls.push_back("Save " + section + " " + key + " " + value + " " + profile);
    calls_.values[inSmallLetters(key)] = value;
    if (calls_.whenSaved) calls_.whenSaved(*connection_);
  }

 private:
  static std::string inSmallLetters(std::string key) {
    std::transform(key.begin(), key.end(), key.begin(), [](char c) {
      return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return key;
  }

  SettingsCalls& calls_;
  Connection* connection_ = nullptr;
};

class DialogHost final : public HostComponents {
 public:
  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override {
    if (whenAsked) whenAsked();
    if (name == component_name::settings && hasSettings)
      return std::make_unique<KeptSettings>(settings);
    return plain.CreateObject(name);
  }
  HostTexts* Texts() override { return plain.texts; }
  HostMessages* Messages() override { return plain.messages; }

  PlainHost plain;
  /// Runs whenever an object is asked for.
  std::function<void()> whenAsked;
  bool hasSettings = true;
  SettingsCalls settings;
};

}  // namespace vexnumkr::test

// A host with everything that the component asks for, which may do anything when it is asked.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <vexnumkr/host_components.h>

namespace vexnumkr::test {

/// `before` is called with the member's name at the beginning of each; what it raises is raised.
/// A member named in `givesNull` hands back null.
class RudeHost final : public HostComponents, public HostTexts, public HostMessages {
 public:
  std::function<void(const std::string& member)> before;
  std::set<std::string> givesNull;
  /// Hands out objects of another class than was asked for.
  bool confuses = false;

  void enter(const char* member) const {
    if (before) before(member);
  }

  std::unique_ptr<HostComponent> CreateObject(const std::string& name) override {
    enter("CreateObject");
    if (givesNull.count("CreateObject") != 0) return nullptr;
    if ((name == component_name::bookingCircles) != confuses)
      return std::make_unique<Circles>(*this);
    return std::make_unique<Settings>(*this);
  }
  HostTexts* Texts() override { return offered<HostTexts>("Texts"); }
  HostMessages* Messages() override { return offered<HostMessages>("Messages"); }

  std::string Text(std::int32_t, const std::vector<Value>&) override {
    enter("Text");
    return "Text";
  }
  PictureData Picture(std::int32_t) override {
    enter("Picture");
    return {"no picture"};
  }
  void ErrorNumber(std::int32_t) override { enter("ErrorNumber"); }
  Value Prepare(const Value&, std::int16_t, const std::optional<Value>&) override {
    enter("Prepare");
    return {};
  }
  std::int32_t Show(const Value&, std::int16_t, const std::optional<Value>&, std::int32_t,
                    const std::optional<Value>&, bool) override {
    enter("Show");
    constexpr std::int32_t yes = 6;
    return yes;
  }

 private:
  class Circles final : public BookingCircleDialog {
   public:
    explicit Circles(RudeHost& host) : host_(host) {}
    ~Circles() override { host_.enter("~Circles"); }
    void Connection(std::shared_ptr<vexnumkr::Connection>) override { host_.enter("Connection"); }
    void MultiSelect(bool) override { host_.enter("MultiSelect"); }
    void Show(const std::string&, std::int32_t) override { host_.enter("Circles.Show"); }

   private:
    RudeHost& host_;
  };

  class Settings final : public SettingsStore {
   public:
    explicit Settings(RudeHost& host) : host_(host) {}
    void Init(std::int32_t, Connection&) override { host_.enter("Settings.Init"); }
    void GetSetting(const std::string&, const std::string&, std::string&, const std::string&,
                    const std::string&, const std::string&) override {
      host_.enter("GetSetting");
    }
    void SaveSetting(const std::string&, const std::string&, const std::string&,
                     const std::string&) override {
      host_.enter("SaveSetting");
    }

   private:
    RudeHost& host_;
  };

  template <class Facility>
  Facility* offered(const char* member) {
    enter(member);
    return givesNull.count(member) != 0 ? nullptr : this;
  }
};

}  // namespace vexnumkr::test

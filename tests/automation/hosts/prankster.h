// What the host's objects do besides what they should.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "adapters/automation/com/com_headers.h"
#include "automation/standins/interception.h"

namespace vexnumkr::test {

/// Listens to the calls that the host's objects receive, and plays a prank in one of them. Calls
/// are named as standins::Interceptor says.
class Prankster final : private standins::Interceptor {
 public:
  /// The call comes to nothing but that outcome; with none it does what it should, after the prank.
  using Prank = std::function<std::optional<HRESULT>()>;

  /// REQUIRES: there is or has been an object of the host's.
  Prankster();
  Prankster(const Prankster&) = delete;
  Prankster& operator=(const Prankster&) = delete;

  /// Listens until the result goes, hearing nothing of what happens within a prank.
  class Listening {
   public:
    explicit Listening(Prankster& prankster) : prankster_(prankster) { prankster.listen(true); }
    ~Listening() { prankster_.listen(false); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

   private:
    Prankster& prankster_;
  };

  /// `prank` is played in the n-th such call that is heard, counted from 1.
  void plan(const std::string& call, int n, Prank prank);
  /// No call has been heard yet, and nothing been played.
  void hearAnew();

  bool wasPlayed() const { return wasPlayed_; }
  /// How often each call was heard.
  const std::map<std::string, int>& heard() const { return heard_; }
  /// How many objects of the host's there are.
  long objects() const { return objectCount_(); }

 private:
  void listen(bool on) { interceptCalls_(on ? this : nullptr); }
  bool intercept(const char* call, HRESULT& outcome) override;

  standins::InterceptCalls interceptCalls_;
  standins::ObjectCount objectCount_;
  std::map<std::string, int> heard_;
  std::string call_;
  int n_ = 0;
  Prank prank_;
  bool isPlaying_ = false;
  bool wasPlayed_ = false;
};

}  // namespace vexnumkr::test

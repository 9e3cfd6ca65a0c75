// Scenarios made by chance, for checking what holds whatever a user does.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace vexnumkr::scenario {

/// Makes scenarios that always run to their end: every command can be carried out in every state
/// that the ones before may have led to. The same seed makes the same scenario.
class RandomScenario {
 public:
  explicit RandomScenario(std::uint32_t seed) : random_(seed) {}

  /// A database of document types, booking circles, users and assignments, and the open dialog.
  std::string beginning();
  /// `steps` things that a user may do in the main dialog, each followed by a look at everything.
  std::string work(int steps);
  /// Cancel, or OK with the answer that saves; then what was sent and what is stored. Where OK
  /// finds something to complain about, the scenario ends with the dialog open.
  std::string cancel() const { return "statements\npress cmdCancel\nstatements\ndatabase\n"; }
  std::string ok() const;

 private:
  int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(random_); }
  bool chance(int percent) { return upTo(99) < percent; }
  std::string range(int circle, const std::string& key, int order,
                    const std::string& drawsFrom = "");
  std::string rangesOf(const std::string& key, int order);
  std::string step();
  std::string edit();

  std::mt19937 random_;
  int application_ = 2;
  int circles_ = 0;
  int users_ = 0;
  int ranges_ = 0;  // made so far
};

}  // namespace vexnumkr::scenario

// The origin code that tells the two host applications apart in the tables that they share.
#pragma once

#include <cstdint>
#include <string>

namespace vexnumkr {

/// Of an application code: 1 is "ORB", 2 is "ORC", any other has no origin ("").
class Origin {
 public:
  Origin() = default;
  explicit Origin(std::int32_t application) : application_(application) {}

  std::string Herkunft() const;
  /// That of the other application; empty where there is no own one.
  std::string andereHerkunft() const;
  bool exists() const { return application_ == 1 || application_ == 2; }

 private:
  std::int32_t application_ = 0;
};

}  // namespace vexnumkr

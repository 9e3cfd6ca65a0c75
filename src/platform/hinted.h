// Controls that can say what they are for, beside their tool tips.
#pragma once

#include <string>

namespace vexnumkr {

/// What buttons of a forms toolkit may offer besides.
class Hinted {
 public:
  virtual ~Hinted() = default;
  /// A text that is shown where the control has no tool tip, and told to assistive technology.
  virtual void Hint(const std::string& text) = 0;

 protected:
  Hinted() = default;
  Hinted(const Hinted&) = default;
  Hinted& operator=(const Hinted&) = default;
};

}  // namespace vexnumkr

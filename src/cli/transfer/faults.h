// What is wrong with a file, all of it and not only the first.
#pragma once

#include <string>

#include "cli/usage_error.h"

namespace vexnumkr::cli {

class Faults {
 public:
  /// "ranges[3]: hat keine Zahl "end"."
  void add(const std::string& place, const std::string& what) { add(place + ": " + what); }
  void add(const std::string& text) { text_ += "\n" + text; }
  bool isEmpty() const { return text_.empty(); }
  /// Error: UsageError with all of them, where there are any.
  void raise() const {
    if (!isEmpty()) throw UsageError("Das ist so nicht zu verwenden:" + text_);
  }

 private:
  std::string text_;
};

}  // namespace vexnumkr::cli

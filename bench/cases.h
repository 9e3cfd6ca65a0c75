// What is measured. Each of these adds its comparisons; what they need is made when the first of
// them runs, and kept for the others.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "bench/comparison.h"

namespace vexnumkr::bench {

/// Made when it is first asked for.
template <class T>
class Lazy {
 public:
  explicit Lazy(std::function<std::unique_ptr<T>()> make) : make_(std::move(make)) {}
  T& operator*() {
    if (!made_) made_ = make_();
    return *made_;
  }
  T* operator->() { return &**this; }

 private:
  std::function<std::unique_ptr<T>()> make_;
  std::unique_ptr<T> made_;
};

template <class T>
std::shared_ptr<Lazy<T>> lazily(std::function<std::unique_ptr<T>()> make) {
  return std::make_shared<Lazy<T>>(std::move(make));
}

/// How much data a run uses.
struct Scale {
  int company = 0;                ///< the scale of the sample company
  int smallerCompany = 0;         ///< and of the one that it is compared with
  std::int32_t sequenceRows = 0;  ///< common rows that draw on one sequence
  std::int32_t gridItems = 0;
  int repetitions = 1;
};

void addDatabaseCases(Comparisons& comparisons, const Scale& scale);
void addRuleCases(Comparisons& comparisons, const Scale& scale);
void addTableCases(Comparisons& comparisons, const Scale& scale);
void addGridCases(Comparisons& comparisons, const Scale& scale);
void addDialogCases(Comparisons& comparisons, const Scale& scale);
void addEditorCases(Comparisons& comparisons, const Scale& scale);
void addNumbersCases(Comparisons& comparisons, const Scale& scale);
void addNetworkCases(Comparisons& comparisons, const Scale& scale);

}  // namespace vexnumkr::bench

#include "automation/hosts/prankster.h"

#include <utility>

namespace vexnumkr::test {
namespace {

template <class Function>
Function exported(const char* name) {
  const HMODULE library = GetModuleHandleW(L"vexnumkr-standins.dll");
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

Prankster::Prankster()
    : interceptCalls_(exported<standins::InterceptCalls>("interceptCalls")),
      objectCount_(exported<standins::ObjectCount>("objectCount")) {}

void Prankster::plan(const std::string& call, int n, Prank prank) {
  call_ = call;
  n_ = n;
  prank_ = std::move(prank);
}

void Prankster::hearAnew() {
  heard_.clear();
  wasPlayed_ = false;
}

bool Prankster::intercept(const char* call, HRESULT& outcome) {
  if (isPlaying_) return false;
  const int count = ++heard_[call];
  if (!prank_ || call != call_ || count != n_) return false;
  wasPlayed_ = isPlaying_ = true;
  const std::optional<HRESULT> result = prank_();
  isPlaying_ = false;
  if (result) outcome = *result;
  return result.has_value();
}

}  // namespace vexnumkr::test

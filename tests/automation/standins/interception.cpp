#include "automation/standins/interception.h"

namespace vexnumkr::standins {
namespace {

Interceptor* current = nullptr;

}  // namespace

bool isIntercepted(const char* call, HRESULT& outcome) {
  return current != nullptr && current->intercept(call, outcome);
}

}  // namespace vexnumkr::standins

extern "C" void interceptCalls(vexnumkr::standins::Interceptor* interceptor) {
  vexnumkr::standins::current = interceptor;
}

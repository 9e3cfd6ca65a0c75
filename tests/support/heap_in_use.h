// How much memory of the heap is in use, with and without the address sanitizer.
#pragma once

#include <malloc.h>

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace vexnumkr::test {

/// In bytes; libraries that are loaded count as well.
inline long heapInUse() {
#if defined(__SANITIZE_ADDRESS__)
  return static_cast<long>(__sanitizer_get_current_allocated_bytes());
#else
  const auto heap = mallinfo2();
  return static_cast<long>(heap.uordblks + heap.hblkhd);
#endif
}

}  // namespace vexnumkr::test

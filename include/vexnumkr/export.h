// Marks what the shared library exports to hosts; everything else stays hidden inside it.
//
// On Windows nothing is marked: what leaves the library there is listed for the linker, and the
// automation server, made of the same objects, exports none of it.
#pragma once

#if defined(_WIN32)
#define VEXNUMKR_API
#else
#define VEXNUMKR_API __attribute__((visibility("default")))
#endif

// Marks what the shared library exports to hosts; everything else stays hidden inside it.
//
// On Windows nothing is marked: the one library that leaves the build there is the one for
// automation hosts, which find it by its class names and not by symbols.
#pragma once

#if defined(_WIN32)
#define VEXNUMKR_API
#else
#define VEXNUMKR_API __attribute__((visibility("default")))
#endif

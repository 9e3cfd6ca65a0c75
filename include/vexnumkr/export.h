// Marks what the shared library exports to hosts; everything else stays hidden inside it.
#pragma once

#if defined(VEXNUMKR_STATIC)
#define VEXNUMKR_API
#elif defined(_WIN32)
#if defined(VEXNUMKR_BUILD)
#define VEXNUMKR_API __declspec(dllexport)
#else
#define VEXNUMKR_API __declspec(dllimport)
#endif
#else
#define VEXNUMKR_API __attribute__((visibility("default")))
#endif

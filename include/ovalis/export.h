#pragma once

/// Marks what the shared library `ovalis` offers; everything else stays inside.
#if defined(_WIN32)
#if defined(OVALIS_BUILDING)
#define OVALIS_API __declspec(dllexport)
#else
#define OVALIS_API __declspec(dllimport)
#endif
#else
#define OVALIS_API __attribute__((visibility("default")))
#endif

#pragma once

/// Marks what the shared library `openaccess` gives to others.
#if defined(_WIN32)
#if defined(OA_BUILDING)
#define OA_API __declspec(dllexport)
#else
#define OA_API __declspec(dllimport)
#endif
#else
#define OA_API __attribute__((visibility("default")))
#endif

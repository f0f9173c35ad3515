#pragma once

/// OA_API marks what the shared library `openaccess` gives to others, OA_PLUGIN_API what a plug-in
/// module gives to the library, and OA_MODULE_LOCAL what every module has a copy of for itself.
#if defined(_WIN32)
#if defined(OA_BUILDING)
#define OA_API __declspec(dllexport)
#else
#define OA_API __declspec(dllimport)
#endif
#define OA_PLUGIN_API __declspec(dllexport)
#define OA_MODULE_LOCAL
#else
#define OA_API __attribute__((visibility("default")))
#define OA_PLUGIN_API __attribute__((visibility("default")))
#define OA_MODULE_LOCAL __attribute__((visibility("hidden")))
#endif

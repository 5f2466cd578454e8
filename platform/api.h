// Marks what libhxplatform.so offers to the folders above it. Everything else stays inside the library.
#pragma once

#if defined(_WIN32)
#if defined(HX_BUILDING_PLATFORM)
#define HX_PLATFORM_API __declspec(dllexport)
#else
#define HX_PLATFORM_API __declspec(dllimport)
#endif
#else
#define HX_PLATFORM_API __attribute__((visibility("default")))
#endif

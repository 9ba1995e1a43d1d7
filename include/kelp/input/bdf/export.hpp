#pragma once

/// @file
/// The export macro. A program that compiles the sources into itself defines
/// `KELP_BDF_INP_STATIC`; everybody else links the shared library and defines nothing.

#if defined(KELP_BDF_INP_STATIC)
#define KELP_BDF_INP_EXPORT
#elif defined(_WIN32)
#if defined(KELP_BDF_INP_BUILDING)
#define KELP_BDF_INP_EXPORT __declspec(dllexport)
#else
#define KELP_BDF_INP_EXPORT __declspec(dllimport)
#endif
#else
/// Marks what the library exports.
#define KELP_BDF_INP_EXPORT __attribute__((visibility("default")))
#endif

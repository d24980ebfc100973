#pragma once

// QX_EXPORT marks what the shared library shows to its hosts. The library is built with hidden
// visibility, so a class or function without the mark cannot be linked against from outside.
//
// Hosts that link the static library on Windows define QX_STATIC.
#if defined(_WIN32) && !defined(QX_STATIC)
#if defined(QX_BUILDING_LIBRARY)
#define QX_EXPORT __declspec(dllexport)
#else
#define QX_EXPORT __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define QX_EXPORT __attribute__((visibility("default")))
#else
#define QX_EXPORT
#endif

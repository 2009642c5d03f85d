// What marks a class or function as part of a library's public interface.
//
// Both libraries are built with hidden visibility: only what carries YM_EXPORT can be linked against.
// YM_HIDDEN takes a private part of an exported class back out of it.
#pragma once

#if defined(__GNUC__)
#define YM_EXPORT __attribute__((visibility("default")))
#define YM_HIDDEN __attribute__((visibility("hidden")))
#else
#define YM_EXPORT
#define YM_HIDDEN
#endif

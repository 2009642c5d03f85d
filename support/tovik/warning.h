#pragma once

#include <tovik/export.h>

// Writes `message` and a newline to the standard error stream. `message` must not be null.
extern "C" YM_EXPORT void ym_warning_print(const char* message);

#include <tovik/warning.h>

#include <cstdio>

extern "C" void ym_warning_print(const char* message)
{
    std::fprintf(stderr, "%s\n", message);
}

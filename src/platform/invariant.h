// Broken invariants stop the program in every build: a table that overflowed in silence would
// write wrong files, which is worse than no file.
#pragma once

#include <cstdio>
#include <cstdlib>

#define VORNA_INVARIANT(condition)                                                                 \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: invariant broken: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

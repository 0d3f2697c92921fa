#pragma once

// What a fuzz target does when a property fails: says which, and stops the run so
// that libFuzzer keeps the input that broke it.
#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                                      \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "property failed: %s (%s:%d)\n", #condition, __FILE__, __LINE__); \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program, as a fuzzer wants it, when a property does not hold.
#define VORLENT_REQUIRE(property)                                                        \
  do {                                                                                   \
    if (!(property)) {                                                                   \
      std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #property); \
      std::abort();                                                                      \
    }                                                                                    \
  } while (false)

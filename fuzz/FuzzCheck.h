#pragma once
// How every fuzz target fails: it names itself and what broke, then aborts, so libFuzzer
// keeps the input and the replay test of that input fails as loudly.
//
// A target defines FUZZ_TARGET_NAME ("drive_fuzz", ...) before it includes this.

#include <cstdio>
#include <cstdlib>

#ifndef FUZZ_TARGET_NAME
#error "define FUZZ_TARGET_NAME before including FuzzCheck.h"
#endif

namespace {

[[maybe_unused]] void check(bool ok, const char* what) {
    if (ok)
        return;
    std::fflush(stdout);
    std::fprintf(stderr, "%s: %s\n", FUZZ_TARGET_NAME, what);
    std::abort();
}

}  // namespace

#include "fuzz_target.h"

#include <cstdio>
#include <cstdlib>

void promise(bool isKept, const char *words)
{
    if (isKept)
        return;
    (void)std::fprintf(stderr, "Broken: %s\n", words);
    std::abort();
}

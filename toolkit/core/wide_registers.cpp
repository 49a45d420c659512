#include "wide_registers.h"

#ifdef __x86_64__

#include <immintrin.h>

namespace {

[[gnu::target("avx"), gnu::noinline]] void clear_upper_halves()
{
    _mm256_zeroupper();
}

} // namespace

void release_wide_registers()
{
    if (__builtin_cpu_supports("avx"))
        clear_upper_halves();
}

#else

void release_wide_registers() { }

#endif

// Joins a fuzz target to clang's engine.
//
//   fuzz_... --seeds FOLDER    writes the seeds there, in place of any run

#include "fuzz_target.h"

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string_view>

extern "C" {

// What a file claims to need is refused like on a machine of little memory, not found to be a mistake.
const char *__asan_default_options() // NOLINT(bugprone-reserved-identifier): the sanitizer's name
{
    return "allocator_may_return_null=1:max_allocation_size_mb=320:detect_stack_use_after_return=0";
}

const char *__ubsan_default_options() // NOLINT(bugprone-reserved-identifier): the sanitizer's name
{
    return "print_stacktrace=1";
}

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    if (*argc != 3 || std::string_view((*argv)[1]) != "--seeds")
        return 0;
    int number = 0;
    for (const std::string &seed : fuzz_seeds()) {
        std::ofstream file((*argv)[2] + ("/seed-" + std::to_string(number++)), std::ios::binary);
        promise(static_cast<bool>(file << seed), "the seeds can be written");
    }
    std::_Exit(0);
}

int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    try_input({bytes, size});
    return 0;
}
}

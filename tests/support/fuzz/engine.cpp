// Joins a fuzz target to clang's engine.
//
//   fuzz_... --seeds FOLDER    writes the seeds there, in place of any run

#include "fuzz_target.h"

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string_view>

extern "C" {

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

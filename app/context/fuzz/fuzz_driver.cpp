// Feeds a fuzz target where its engine is not there: SECONDS of mutations, the same ones every time.
//
//   fuzz_... SECONDS FILE      every input is a mutation of one before, the first of FILE
//
// An input that the target aborts on is left in the current directory as "fuzz-crash".

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include <fcntl.h>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size);

namespace {

constexpr std::size_t LongestInput = 16384;

std::string input;

void keep_input(int /*signal*/)
{
    const int file = ::open("fuzz-crash", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    (void)!::write(file, input.data(), input.size()); // the process ends in any case
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

class Mutator
{
public:
    explicit Mutator(std::string text) : seed(std::move(text)), current(seed) { }

    [[nodiscard]] const std::string &next()
    {
        if (below(100) == 0 || current.size() > LongestInput)
            current = seed;
        for (std::size_t n = 1 + below(4); n > 0; --n)
            change();
        return current;
    }

private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random); }

    void change()
    {
        const std::size_t at = below(current.size() + 1);
        switch (below(4)) {
        case 0:
            current.insert(at, 1, static_cast<char>(below(256)));
            break;
        case 1:
            current.insert(at, 1 + below(600), "\n=xA9"[below(5)]);
            break;
        case 2: // again and again, since limits lie behind many of a kind
            for (std::size_t n = 1 + below(40), from = below(seed.size()), length = below(64); n > 0; --n)
                current.insert(at, seed, from, length);
            break;
        default:
            current.erase(at, 1 + below(64));
            break;
        }
    }

    std::mt19937 random{1};
    std::string seed;
    std::string current;
};

} // namespace

int main(int argc, char **argv)
{
    std::ifstream file(argc == 3 ? argv[2] : "");
    const std::string seed(std::istreambuf_iterator<char>(file), {});
    if (seed.empty()) {
        (void)std::fprintf(stderr, "usage: %s SECONDS FILE\n", argv[0]);
        return 2;
    }
    std::signal(SIGABRT, keep_input);
    Mutator mutator(seed);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(std::atoi(argv[1]));
    long inputs = 0;
    for (; std::chrono::steady_clock::now() < end; ++inputs) {
        input = mutator.next();
        (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
    }
    std::printf("%ld inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}

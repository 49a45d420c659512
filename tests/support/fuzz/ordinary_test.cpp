// Makes a test of a fuzz target where its engine is not there.
//
//   fuzz_... [FOLDER]    tries the seeds, the files of the folder, and a second of mutations of them
//
// The mutations are the same ones every time. An input that breaks the target is left in the current directory, as
// "fuzz-crash".

#include "fuzz_target.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::size_t LongestInput = 16384;
constexpr std::chrono::seconds MutationTime(1);

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
    explicit Mutator(std::vector<std::string> texts) : seeds(std::move(texts)), current(seeds.front()) { }

    [[nodiscard]] const std::string &next()
    {
        if (below(20) == 0 || current.size() > LongestInput)
            current = seeds[below(seeds.size())];
        for (std::size_t n = 1 + below(4); n > 0; --n)
            change();
        return current;
    }

private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random); }

    void change()
    {
        const std::string &seed = seeds[below(seeds.size())];
        const std::size_t at = below(current.size() + 1);
        switch (below(6)) {
        case 0:
            current.insert(at, 1, static_cast<char>(below(256)));
            break;
        case 1:
            current.insert(at, 1 + below(600), "\n=xA9"[below(5)]);
            break;
        case 2: // again and again, since limits lie behind many of a kind
            for (std::size_t n = 1 + below(40), from = below(seed.size() + 1), length = below(64); n > 0; --n)
                current.insert(at, seed, from, length);
            break;
        case 3:
            current.erase(at, 1 + below(64));
            break;
        default:
            if (at < current.size())
                current[at] = static_cast<char>(below(256));
            break;
        }
    }

    std::mt19937 random{1};
    std::vector<std::string> seeds;
    std::string current;
};

void try_text(const std::string &text)
{
    input = text;
    try_input({reinterpret_cast<const std::uint8_t *>(input.data()), input.size()});
}

/// The files of a folder in the order of their names; none if there is no folder.
std::vector<std::string> files_in(const char *folder)
{
    std::vector<std::filesystem::path> paths;
    if (std::filesystem::is_directory(folder))
        std::ranges::copy(std::filesystem::directory_iterator(folder), std::back_inserter(paths));
    std::ranges::sort(paths);
    std::vector<std::string> texts;
    for (const std::filesystem::path &path : paths) {
        std::ifstream file(path, std::ios::binary);
        texts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return texts;
}

} // namespace

int main(int argc, char **argv)
{
    std::signal(SIGABRT, keep_input);
    std::vector<std::string> texts = fuzz_seeds();
    promise(!texts.empty(), "there is a seed");
    const std::size_t seedCount = texts.size();
    if (argc > 1)
        std::ranges::move(files_in(argv[1]), std::back_inserter(texts));
    for (const std::string &text : texts)
        try_text(text);

    Mutator mutator(texts);
    long mutations = 0;
    const auto end = std::chrono::steady_clock::now() + MutationTime;
    for (; std::chrono::steady_clock::now() < end; ++mutations)
        try_text(mutator.next());
    std::printf("%zu seeds, %zu finds, %ld mutations\n", seedCount, texts.size() - seedCount, mutations);
    return mutations > 0 ? 0 : 1;
}

// Edits and steps through the past of a page in any order, on disks that are full, refuse to write or lose snapshots:
// the history goes as its model does.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "HistoryPair.h"
#include "quiet_toolkit.h"

std::vector<std::string> fuzz_seeds()
{
    std::vector<std::string> seeds;
    for (unsigned start = 1; start <= 8; ++start) {
        std::string seed;
        for (unsigned value = start; seed.size() < 300; value = value * 1103515245U + 12345U)
            seed += static_cast<char>(value >> 16U);
        seeds.push_back(seed);
    }
    return seeds;
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit();
    FuzzInput input(bytes);
    const TemporaryHome home;
    const LineCollector collector;
    HistoryPair pair(home, [&input](int limit) { return input.below(limit); });

    while (!input.isAtEnd()) {
        const QString difference = pair.step();
        promise(difference.isEmpty(), qPrintable(difference));
    }
    promise(numbers_in(home) == pair.expectedNumbers(), "the snapshots on the disk are those of the model");
}

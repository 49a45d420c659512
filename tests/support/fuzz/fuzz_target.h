#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// What a fuzz target is: a program <folder>/fuzz/fuzz_<subject>.cpp that defines the two functions below. Built by the
/// preset "fuzz" clang's engine chooses the inputs; in every other build the program is a test, which tries its seeds,
/// the inputs that once broke it and some mutations of them.

/// Inputs to begin with, made on the spot.
[[nodiscard]] std::vector<std::string> fuzz_seeds();

/// Tries one input. A broken promise ends the process.
void try_input(std::span<const std::uint8_t> bytes);

/// Ends the process if a promise is broken, and says which.
void promise(bool isKept, const char *words);

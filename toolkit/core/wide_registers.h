#pragma once

/// Tells the processor that the upper halves of its vector registers are not in use. To be called before long loops.
///
/// Libraries leave them in use after some paintings. Then each vector instruction that knows the lower halves only
/// waits for what the register held before, and loops take twice the time until the system next interrupts the program.
void release_wide_registers();

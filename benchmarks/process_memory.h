#pragma once

/// Memory of this process as the system counts it, in bytes; 0 if it does not tell.

[[nodiscard]] double resident_memory();
/// The most since the start or since the count was restarted.
[[nodiscard]] double peak_memory();
void restart_peak_count();

/// Of a process by its number.
[[nodiscard]] double peak_memory_of(int pid);

#pragma once

/// Saves flush their files to the disk, and the yardsticks of most rows do not: fsync() does nothing in the process of
/// the benchmarks, for our code and the yardsticks alike, until a side asks for it.
void let_files_be_flushed(bool wanted);

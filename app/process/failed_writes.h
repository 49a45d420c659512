#pragma once

/// Makes a write that nobody is going to read (SIGPIPE), and one that would pass the limit on the size of files
/// (SIGXFSZ), fail like any other write, with EPIPE and EFBIG, instead of ending the process.
///
/// By handlers and not by ignoring the signals: programs that this one starts have the default. What the caller has
/// chosen to ignore stays ignored.
void let_writes_fail();

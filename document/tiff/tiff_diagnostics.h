#pragma once

/// Lets what libtiff has to say about files come as diagnostic lines of the toolkit, in the whole process: by itself
/// it writes to standard error and waits for its reader.
void tell_of_tiff_by_the_toolkit();

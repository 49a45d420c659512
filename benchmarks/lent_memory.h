#pragma once

#include <cstddef>

/// Takes so many bytes of memory, touches each page, and gives them back. The host of a virtual machine may have taken
/// away what the system has free (free page reporting); it has lent it again after this, and what is measured next is
/// the program and not the host. Does nothing where less is available.
void have_memory_lent(std::size_t bytes);

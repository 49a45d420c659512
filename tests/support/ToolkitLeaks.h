#pragma once

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include <QtGlobal>

/// While it lives, leaks are not looked for: some of the toolkit's image writers lose a row of pixels when the disk
/// refuses it.
class ToolkitLeaks
{
public:
#ifdef __SANITIZE_ADDRESS__
    ToolkitLeaks()
    {
        __lsan_disable();
    }
    ~ToolkitLeaks()
    {
        __lsan_enable();
    }
#else
    ToolkitLeaks() { } // NOLINT(modernize-use-equals-default): a trivial one would count as unused
    ~ToolkitLeaks() { } // NOLINT(modernize-use-equals-default)
#endif
    Q_DISABLE_COPY_MOVE(ToolkitLeaks)
};

#pragma once

#include <QtGlobal>

/// Stands by while the toolkit starts: where it cannot, the program ends with one line on standard error that
/// tells why, and status 1. By itself the toolkit would end with several lines of advice and a core file.
///
/// The toolkit has to make its connection to the X server anyway, so nothing else asks first whether one can
/// be made.
///
/// Threads: one object at a time, on the main thread.
class StartFailureReport
{
public:
    StartFailureReport();
    ~StartFailureReport();
    Q_DISABLE_COPY_MOVE(StartFailureReport)
};

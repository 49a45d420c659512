#pragma once

#include <QStringList>

/// Threads of this process, as numbers; not those that have begun to end, which stay listed for a moment after they
/// were joined.
[[nodiscard]] QStringList live_threads();
/// Whether a thread waits, or is no more.
[[nodiscard]] bool is_at_rest(const QString &thread);

#pragma once

#include <QIcon>

/// The icon of the program's windows, from 16 to 128 pixels square. Needs the QApplication.
[[nodiscard]] QIcon application_icon();

// Runs a command in a world where the toolkit has no TIFF plug-in, and tells it so by the variable
// IM_WITHOUT_TIFF_PLUGIN. Nobody else on the machine misses the plug-in.
//
//   without_tiff_plugin COMMAND [ARGUMENT...]

#include "private_mounts.h"
#include "private_namespaces.h"

#include <QFile>
#include <QLibraryInfo>

#include <optional>
#include <unistd.h>

int main(int argc, char **argv)
{
    if (argc < 2)
        qFatal("usage: without_tiff_plugin COMMAND [ARGUMENT...]");
    leave_common_mounts();

    // Covered by a file that is none: no setting of the toolkit hides a plug-in.
    const QString plugin = QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/imageformats/libqtiff.so");
    std::optional<PrivateMount> cover;
    if (QFile::exists(plugin))
        cover.emplace("/dev/null", QFile::encodeName(plugin), nullptr, MS_BIND);

    qputenv("IM_WITHOUT_TIFF_PLUGIN", "1");
    ::execvp(argv[1], argv + 1);
    qFatal("cannot run %s: %s", argv[1], std::strerror(errno));
}

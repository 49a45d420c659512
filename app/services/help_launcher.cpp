#include "help_launcher.h"

#include "AppContext.h"
#include "path_strings.h"
#include "Q3Process.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

void add_option(Q3Process &process, const QString &name, const QString &value)
{
    if (value.isEmpty())
        return;
    process.addArgument(name);
    process.addArgument(value);
}

} // namespace

void showHelp(const QString &topic, int n, int h, int f)
{
    const QString helpDir = QFile::decodeName(join_path_static(actx.share_dir, "help"));
    const QString binDir = QFile::decodeName(join_path_static(actx.package_dir, "bin"));
    launchHelpViewer(binDir, helpDir, topic, u"DriverPackageOverview.htm"_s, n, h, f, {}, {}, {}, {}, {});
}

void launchHelpViewer(const QString &binDir, const QString &helpDir, const QString &topic, const QString &overview,
                      int n, int h, int f, const QString &uiAbout, const QString &resAbout, const QString &translate,
                      const QString &shareDir, const QString &vendorConfigDir)
{
    const QString viewer = u"pagr"_s;
    Q3Process process;
    process.addArgument(binDir.isEmpty() ? viewer : QFileInfo(QDir(binDir), viewer).absoluteFilePath());
    add_option(process, u"-s"_s, helpDir);
    add_option(process, u"-u"_s, topic);
    add_option(process, u"-g"_s, overview);
    add_option(process, u"-n"_s, QString::number(n));
    add_option(process, u"-h"_s, QString::number(h));
    add_option(process, u"-f"_s, QString::number(f));
    add_option(process, u"--ui-about"_s, uiAbout);
    add_option(process, u"--res-about"_s, resAbout);
    add_option(process, u"--translate"_s, translate);
    add_option(process, u"--sharedir"_s, shareDir);
    add_option(process, u"--vendorconfigdir"_s, vendorConfigDir);

    qDebug("launchHelpViewer(): %s", process.arguments().join(' '_L1).toLocal8Bit().constData());
    (void)process.launch(); // a package without a viewer has no help to show
}

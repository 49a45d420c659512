#include "application_icon.h"
#include "HelpWindow.h"
#include "translations.h"
#include "viewer_options.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);

    // The package has bin/ and share/ side by side.
    const QString catalogues = QDir(QCoreApplication::applicationDirPath()).filePath(u"../share/tr"_s);
    const QString locale = QLocale::system().name();
    install_translations({u"pagr"_s, u"qt"_s}, {QLibraryInfo::path(QLibraryInfo::TranslationsPath), catalogues},
                         locale);
    QApplication::setWindowIcon(application_icon());

    HelpWindow window(viewer_options(QCoreApplication::arguments().mid(1)), locale);
    window.show();
    return QApplication::exec();
}

// The program's window with all pages of a TIFF file, as its dialog opens a file whose name ends in ".TIFF". A start
// with a file reads the first page only.
//
//   all_pages FILE

#include "application_icon.h"
#include "ImageManager.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(application_icon());
    ImageManager window;
    window.setVisible(true);
    if (!window.load_file(QApplication::arguments().value(1), QStringLiteral("TIFF"), false))
        return 1;
    return QApplication::exec();
}

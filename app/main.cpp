#include "application_icon.h"
#include "argument_message.h"
#include "ImageManager.h"
#include "x_server.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

int main(int argc, char *argv[])
{
    // The toolkit would end with several lines of advice and a core file.
    if (!x_server_reachable(argc, argv)) {
        (void)std::fputs("imagemanager: cannot reach an X server; set DISPLAY or use -display\n", stderr);
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");

    const QApplication application(argc, argv);
    const QString message = joinArgv(argc, argv);
    QApplication::setWindowIcon(applicationIcon());

    ImageManager window;
    window.setVisible(true);
    window.processArgs(splitArgs(message));
    return QApplication::exec();
}

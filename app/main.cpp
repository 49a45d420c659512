#include "AppContext.h"
#include "application_icon.h"
#include "argument_message.h"
#include "ImageManager.h"
#include "QtSingleApplication.h"
#include "StartFailureReport.h"
#include "translations.h"

#include <QFileInfo>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

constexpr std::array<const char *, 4> Catalogues{"ImageManager", "imageview", "utils", nullptr};

} // namespace

int main(int argc, char **argv)
{
    // A start by another path is another application.
    const QString id = QFileInfo(QString::fromUtf8(argv[0])).absoluteFilePath();

    qputenv("QT_QPA_PLATFORM", "xcb");
    std::optional<StartFailureReport> failureReport(std::in_place);
    QtSingleApplication application(id, argc, argv, true);
    failureReport.reset();

    const QString message = joinArgv(argc, argv);
    if (application.sendMessage(message)) {
        QGuiApplication::sync(); // the other instance can open the files while this one takes itself down
        return EXIT_SUCCESS;
    }
    application.startListening(true);

    // The window lets events through while it is being built: what other starts say then has to wait for it.
    QStringList earlyMessages;
    const auto keeping = QObject::connect(&application, &QtSingleApplication::messageReceived, &application,
                                          [&earlyMessages](const QString &text) { earlyMessages.append(text); });

    if (find_installation(argv[0]) != 0)
        (void)std::puts("WARNING: configuration file not found");
    load_translations(Catalogues.data());
    QApplication::setWindowIcon(applicationIcon());

    ImageManager window;
    QObject::disconnect(keeping);
    // Later than startListening(), so that a widget has come to the front when the files open.
    QObject::connect(&application, &QtSingleApplication::messageReceived, &window, &ImageManager::processMessage);
    window.setVisible(true);

    window.processArgs(splitArgs(message), earlyMessages);
    if (window.isClosed())
        return EXIT_SUCCESS; // while a file was being opened, when there was no loop to leave yet
    return QApplication::exec(); // until the window, the last one, is closed
}

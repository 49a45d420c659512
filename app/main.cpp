#include "AppContext.h"
#include "application_icon.h"
#include "argument_message.h"
#include "diagnostics.h"
#include "early_picture.h"
#include "EndSignals.h"
#include "failed_writes.h"
#include "ImageManager.h"
#include "QtSingleApplication.h"
#include "QuickIconStyle.h"
#include "settings_files.h"
#include "StartFailureReport.h"
#include "tiff_diagnostics.h"
#include "translations.h"

#include <QFileInfo>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char *, 4> Catalogues{"ImageManager", "imageview", "utils", nullptr};

/// The first file that processArgs() will open; empty if there is none.
QString first_file(const QStringList &args)
{
    const bool isTemporary = args.value(1) == "-t"_L1 && args.size() > 2;
    return args.value(isTemporary ? 2 : 1);
}

/// The program from its start to its end. The answer is its exit status.
int run(int argc, char **argv)
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
    QApplication::setStyle(new QuickIconStyle(QApplication::style())); // takes it, and is taken
    const EndSignals endSignals; // from here on there is something to take down
    QApplication::setWindowIcon(application_icon()); // a property of every window, which would be taken for a message
    application.startListening(true);
    const EarlyPicture firstPicture(first_file(splitArgs(message))); // meanwhile

    // The window lets events through while it is being built: what other starts say then has to wait for it.
    QStringList earlyMessages;
    const auto keeping = QObject::connect(&application, &QtSingleApplication::messageReceived, &application,
                                          [&earlyMessages](const QString &text) { earlyMessages.append(text); });

    if (find_installation(argv[0]) != 0)
        (void)std::puts("WARNING: configuration file not found");
    avoid_odd_settings_files();
    load_translations(Catalogues.data());

    ImageManager window;
    QObject::disconnect(keeping);
    // Later than startListening(), so that a widget has come to the front when the files open.
    QObject::connect(&application, &QtSingleApplication::messageReceived, &window, &ImageManager::processMessage);
    QObject::connect(&endSignals, &EndSignals::came, &window, &ImageManager::closeUnasked);
    window.setVisible(true);

    if (EndSignals::number() == 0)
        window.processArgs(splitArgs(message), earlyMessages);
    if (window.isClosed() || EndSignals::number() != 0)
        return EXIT_SUCCESS; // there was no loop to leave yet
    return QApplication::exec(); // until the window, the last one, is closed
}

} // namespace

int main(int argc, char **argv)
{
    let_writes_fail();
    write_diagnostics_without_waiting();
    tell_of_tiff_by_the_toolkit();

    const int status = run(argc, argv);
    EndSignals::passOn(); // all that is to be taken down is down
    return status;
}

#pragma once

#include <QGuiApplication>

#include <array>

/// Starts the toolkit for a fuzz target: on no screen and without words. Called by both functions of the target.
/// @tparam Application  QApplication for a target with widgets
template <typename Application = QGuiApplication> void start_quiet_toolkit()
{
    static const auto *const application = [] {
        static int argc = 1;
        static std::array<char, 5> name{"fuzz"};
        static std::array<char *, 2> argv{name.data(), nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(
            [](QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString & /*line*/) {});
        return new Application(argc, argv.data()); // ends with the process
    }();
    Q_UNUSED(application)
}

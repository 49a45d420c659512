#pragma once

#include <QTest>

#include <csignal>

/// The rows of a test whose one column "number" holds the signals that ask a program to end. They get their default
/// action here: one that is ignored here would be ignored there.
inline void add_end_signals()
{
    QTest::addColumn<int>("number");
    const auto row = [](const char *name, int number) {
        (void)std::signal(number, SIG_DFL);
        QTest::newRow(name) << number;
    };
    row("SIGTERM", SIGTERM);
    row("SIGHUP", SIGHUP);
    row("SIGINT", SIGINT);
}

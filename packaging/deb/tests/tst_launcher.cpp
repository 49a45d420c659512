#include "files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

/// The command of the installed package, started in front of a program that notes down its words.
class tst_launcher : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_place.reset(); }

    void wordsReachTheProgram_data();
    void wordsReachTheProgram();
    void callsThatReachNoProgram_data();
    void callsThatReachNoProgram();
    void missingNamesAreToldInALineEach();
    void markOfAMissingTemporaryFileGoesWithIt();
    void withoutADisplayOneLineSaysSo();
    void displayMayComeAsAnOption();
    void statusOfTheProgramIsItsOwn();

private:
    struct Answer
    {
        int status = -1;
        QString output;
        QString errors;
        std::optional<QStringList> words; ///< what the program was started with, none if it was not
    };

    [[nodiscard]] Answer call(const QStringList &words, const QString &display = u":7"_s) const;
    [[nodiscard]] QString path(const QString &name) const { return m_place->filePath(name); }

    std::optional<QTemporaryDir> m_place;
};

void tst_launcher::init()
{
    m_place.emplace();
    write_program(path(u"launcher"_s),
                  file_bytes(QStringLiteral(IM_LAUNCHER))
                      .replace("@IM_PROGRAM@", path(u"program"_s).toUtf8())
                      .replace("@PROJECT_VERSION@", "9.8"));
    write_program(path(u"program"_s),
                  "#!/bin/sh\nfor word; do printf '%s\\0' \"$word\"; done >\"${0%/*}/words\"\nexit 5\n");
    for (const char *const name :
         {"scans/a.png", "scans/b c.png", "scans/-t", "scans/-odd", "scans/it's \"new\" $HOME.png",
          "scans/12:30/late.png", "scans/12:30/-late", "scans/new\nline.png"})
        write_file(path(QString::fromUtf8(name)), {});
}

tst_launcher::Answer tst_launcher::call(const QStringList &words, const QString &display) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (display.isNull())
        environment.remove(u"DISPLAY"_s);
    else
        environment.insert(u"DISPLAY"_s, display);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(path(u"scans"_s));
    process.start(path(u"launcher"_s), words);
    if (!process.waitForFinished())
        qFatal("the launcher does not end");

    Answer answer{process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                  QString::fromUtf8(process.readAllStandardError()), std::nullopt};
    if (QFile noted(path(u"words"_s)); noted.open(QIODevice::ReadOnly)) {
        answer.words = QString::fromUtf8(noted.readAll()).split(QChar(u'\0'));
        answer.words->removeLast(); // behind the last NUL
    }
    return answer;
}

void tst_launcher::wordsReachTheProgram_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("expected"); // "@" is the working directory

    QTest::newRow("relative name") << QStringList{u"a.png"_s} << QStringList{u"@/a.png"_s};
    QTest::newRow("name above") << QStringList{u"../scans/a.png"_s} << QStringList{u"@/../scans/a.png"_s};
    QTest::newRow("whole name") << QStringList{u"/dev/null"_s} << QStringList{u"/dev/null"_s};
    QTest::newRow("folder") << QStringList{u"12:30/.."_s} << QStringList{u"12:30/.."_s};
    QTest::newRow("blank in a name") << QStringList{u"b c.png"_s} << QStringList{u"@/b c.png"_s};
    QTest::newRow("words of the shell") << QStringList{u"it's \"new\" $HOME.png"_s}
                                        << QStringList{u"@/it's \"new\" $HOME.png"_s};
    QTest::newRow("line end in a name") << QStringList{u"new\nline.png"_s} << QStringList{u"@/new\nline.png"_s};
    QTest::newRow("colon in the whole name") << QStringList{u"12:30/late.png"_s} << QStringList{u"12:30/late.png"_s};
    QTest::newRow("order of several") << QStringList{u"b c.png"_s, u"a.png"_s}
                                      << QStringList{u"@/b c.png"_s, u"@/a.png"_s};
    QTest::newRow("temporary file") << QStringList{u"-t"_s, u"a.png"_s, u"b c.png"_s}
                                    << QStringList{u"-t"_s, u"@/a.png"_s, u"@/b c.png"_s};
    QTest::newRow("file named like an option")
        << QStringList{u"--"_s, u"-t"_s, u"-odd"_s} << QStringList{u"@/-t"_s, u"@/-odd"_s};
    QTest::newRow("only the first -- is a mark")
        << QStringList{u"a.png"_s, u"--"_s, u"b c.png"_s, u"--"_s} << QStringList{u"@/a.png"_s, u"@/b c.png"_s};
    QTest::newRow("option of the toolkit with a value")
        << QStringList{u"-style"_s, u"Fusion"_s, u"a.png"_s} << QStringList{u"-style"_s, u"Fusion"_s, u"@/a.png"_s};
    QTest::newRow("value that is a file") << QStringList{u"-stylesheet"_s, u"a.png"_s, u"b c.png"_s}
                                          << QStringList{u"-stylesheet"_s, u"a.png"_s, u"@/b c.png"_s};
    QTest::newRow("option of the toolkit without one")
        << QStringList{u"--reverse"_s, u"a.png"_s} << QStringList{u"--reverse"_s, u"@/a.png"_s};
    QTest::newRow("value behind the equals sign")
        << QStringList{u"-style=Fusion"_s, u"a.png"_s} << QStringList{u"-style=Fusion"_s, u"@/a.png"_s};
    QTest::newRow("option behind a file")
        << QStringList{u"a.png"_s, u"-title"_s, u"Scans"_s} << QStringList{u"@/a.png"_s, u"-title"_s, u"Scans"_s};
}

void tst_launcher::wordsReachTheProgram()
{
    QFETCH(const QStringList, words);
    QFETCH(QStringList, expected);
    expected.replaceInStrings(u"@"_s, path(u"scans"_s));

    const Answer answer = call(words);

    QVERIFY2(answer.words, qPrintable(answer.errors));
    QCOMPARE(*answer.words, expected);
}

void tst_launcher::callsThatReachNoProgram_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("errors");

    const QString usage = u"Usage: imagemanager"_s;
    QTest::newRow("nothing") << QStringList() << 2 << QString() << usage;
    QTest::newRow("options alone") << QStringList{u"-style"_s, u"Fusion"_s} << 2 << QString() << usage;
    QTest::newRow("option that lacks its value") << QStringList{u"-style"_s} << 2 << QString() << usage;
    QTest::newRow("-t alone") << QStringList{u"-t"_s} << 2 << QString()
                              << u"imagemanager: -t: no file behind it\nUsage"_s;
    QTest::newRow("-- alone") << QStringList{u"--"_s} << 2 << QString() << usage;
    QTest::newRow("help") << QStringList{u"a.png"_s, u"--help"_s} << 0 << usage << QString();
    QTest::newRow("version") << QStringList{u"--version"_s} << 0 << u"imagemanager 9.8\n"_s << QString();
    QTest::newRow("missing file") << QStringList{u"x.png"_s} << 1 << QString()
                                  << u"imagemanager: x.png: no such file\n"_s;
    QTest::newRow("unknown option") << QStringList{u"--fast"_s} << 1 << QString()
                                    << u"imagemanager: --fast: no such file\n"_s;
    QTest::newRow("empty name") << QStringList{QString()} << 1 << QString() << u"imagemanager: : no such file\n"_s;
}

void tst_launcher::callsThatReachNoProgram()
{
    QFETCH(const QStringList, words);
    QFETCH(const QString, output);
    QFETCH(const QString, errors);

    const Answer answer = call(words);

    QTEST(answer.status, "status");
    QVERIFY2(answer.output.startsWith(output) && answer.output.isEmpty() == output.isEmpty(),
             qPrintable(answer.output));
    QVERIFY2(answer.errors.startsWith(errors) && answer.errors.isEmpty() == errors.isEmpty(),
             qPrintable(answer.errors));
    QVERIFY(!answer.words);
}

void tst_launcher::missingNamesAreToldInALineEach()
{
    const Answer answer = call({u"x.png"_s, u"a.png"_s, u"y z.png"_s});

    QCOMPARE(answer.errors, u"imagemanager: x.png: no such file\nimagemanager: y z.png: no such file\n"_s);
    QCOMPARE(answer.words.value_or(QStringList()), QStringList{path(u"scans/a.png"_s)});
}

void tst_launcher::markOfAMissingTemporaryFileGoesWithIt()
{
    const Answer answer = call({u"-t"_s, u"x.png"_s, u"a.png"_s});

    QCOMPARE(answer.words.value_or(QStringList()), QStringList{path(u"scans/a.png"_s)});
}

void tst_launcher::withoutADisplayOneLineSaysSo()
{
    const Answer answer = call({u"a.png"_s}, QString());

    QCOMPARE(answer.status, 1);
    QCOMPARE(answer.errors, u"imagemanager: there is no display to show the window on: DISPLAY is not set\n"_s);
    QVERIFY(!answer.words);
}

void tst_launcher::displayMayComeAsAnOption()
{
    const Answer answer = call({u"-display"_s, u":9"_s, u"a.png"_s}, QString());

    QCOMPARE(answer.words.value_or(QStringList()), (QStringList{u"-display"_s, u":9"_s, path(u"scans/a.png"_s)}));
}

void tst_launcher::statusOfTheProgramIsItsOwn()
{
    QCOMPARE(call({u"a.png"_s}).status, 5);
}

QTEST_GUILESS_MAIN(tst_launcher)
#include "tst_launcher.moc"

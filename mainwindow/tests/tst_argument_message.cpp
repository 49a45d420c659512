#include "argument_message.h"

#include "files.h"

#include <QTemporaryDir>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

class tst_argument_message : public QObject
{
    Q_OBJECT

private slots:
    void argumentsAreJoinedWithoutQuoting()
    {
        const std::array<const char *, 4> argv = {"/opt/im", "-t", "a b.bmp", "\xc3\xa9.png"};

        QCOMPARE(joinArgv(4, argv.data()), u"/opt/im:-t:a b.bmp:\u00e9.png"_s);
    }

    void noArgumentsMakeAnEmptyMessage() { QCOMPARE(joinArgv(0, nullptr), QString()); }

    void aMessageComesApartAtEveryColon_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<QStringList>("arguments");

        QTest::newRow("empty") << QString() << QStringList();
        QTest::newRow("plain") << u"im:a:b"_s << QStringList{u"im"_s, u"a"_s, u"b"_s};
        QTest::newRow("an empty argument disappears") << u"im::b"_s << QStringList{u"im"_s, u"b"_s};
        QTest::newRow("a path with a colon is two")
            << u"im:/x/a:b.png"_s << QStringList{u"im"_s, u"/x/a"_s, u"b.png"_s};
        QTest::newRow("a program path with a colon shifts the list")
            << u"/o:pt/im:a"_s << QStringList{u"/o"_s, u"pt/im"_s, u"a"_s};
    }

    void aMessageComesApartAtEveryColon()
    {
        QFETCH(QString, message);

        QTEST(splitArgs(message), "arguments");
    }

    void partsOfAPathAreJoinedWhereTheyNameAFile_data()
    {
        QTest::addColumn<QStringList>("names"); // "@" is the directory of the files
        QTest::addColumn<QStringList>("joined");

        QTest::newRow("nothing") << QStringList() << QStringList();
        QTest::newRow("the program alone") << QStringList{u"im"_s} << QStringList{u"im"_s};
        QTest::newRow("one colon") << QStringList{u"im"_s, u"@/a"_s, u"b.png"_s}
                                   << QStringList{u"im"_s, u"@/a:b.png"_s};
        QTest::newRow("two colons") << QStringList{u"im"_s, u"@/1"_s, u"2"_s, u"3"_s}
                                    << QStringList{u"im"_s, u"@/1:2:3"_s};
        QTest::newRow("what is there already stays") << QStringList{u"im"_s, u"@/c.png"_s, u"@/a"_s, u"b.png"_s}
                                                     << QStringList{u"im"_s, u"@/c.png"_s, u"@/a:b.png"_s};
        QTest::newRow("two files one behind the other")
            << QStringList{u"im"_s, u"@/a"_s, u"b.png"_s, u"@/1"_s, u"2"_s, u"3"_s}
            << QStringList{u"im"_s, u"@/a:b.png"_s, u"@/1:2:3"_s};
        QTest::newRow("what names no file") << QStringList{u"im"_s, u"@/x"_s, u"y"_s, u"@/a"_s, u"b.png"_s}
                                            << QStringList{u"im"_s, u"@/x"_s, u"y"_s, u"@/a:b.png"_s};
        QTest::newRow("temporary file") << QStringList{u"im"_s, u"-t"_s, u"@/a"_s, u"b.png"_s}
                                        << QStringList{u"im"_s, u"-t"_s, u"@/a:b.png"_s};
        QTest::newRow("the program is no file to open")
            << QStringList{u"@/a"_s, u"b.png"_s} << QStringList{u"@/a"_s, u"b.png"_s};
    }

    void partsOfAPathAreJoinedWhereTheyNameAFile()
    {
        QFETCH(QStringList, names);
        QFETCH(QStringList, joined);
        const QTemporaryDir directory;
        for (const QString &name : {u"a:b.png"_s, u"1:2:3"_s, u"c.png"_s})
            write_file(directory.filePath(name), {});
        for (QStringList *const list : {&names, &joined})
            list->replaceInStrings(u"@"_s, directory.path());

        QCOMPARE(join_paths_with_colons(names), joined);
    }
};

QTEST_APPLESS_MAIN(tst_argument_message)
#include "tst_argument_message.moc"

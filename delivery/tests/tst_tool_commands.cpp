#include "tool_commands.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_tool_commands : public QObject
{
    Q_OBJECT

private slots:
    void placeholderIsReplacedByThePathAsItStands_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("filled");

        QTest::newRow("at the end") << u"gimp <BMP>"_s << u"/home/a/b.bmp"_s << u"gimp /home/a/b.bmp"_s;
        QTest::newRow("without it") << u"gimp"_s << u"/b.bmp"_s << u"gimp"_s;
        QTest::newRow("three times") << u"<BMP> <BMP><BMP>"_s << u"/b"_s << u"/b /b/b"_s;
        QTest::newRow("in quotes") << u"gimp \"<BMP>\""_s << u"/a b"_s << u"gimp \"/a b\""_s;
        QTest::newRow("beside shell words") << u"$(cat <BMP>) `<BMP>`"_s << u"/b"_s << u"$(cat /b) `/b`"_s;
        QTest::newRow("blanks are not quoted") << u"gimp <BMP>"_s << u"/a b"_s << u"gimp /a b"_s;
        QTest::newRow("a backslash stays one") << u"gimp <BMP>"_s << u"/a\\1\\b"_s << u"gimp /a\\1\\b"_s;
        QTest::newRow("small letters are another word") << u"gimp <bmp>"_s << u"/b"_s << u"gimp <bmp>"_s;
        QTest::newRow("a path that holds it") << u"gimp <BMP>"_s << u"/<BMP>"_s << u"gimp /<BMP>"_s;
        QTest::newRow("empty path") << u"gimp <BMP>."_s << QString() << u"gimp ."_s;
        QTest::newRow("empty command") << QString() << u"/b"_s << QString();
    }
    void placeholderIsReplacedByThePathAsItStands()
    {
        QFETCH(const QString, command);
        QFETCH(const QString, path);
        QFETCH(const QString, filled);

        QCOMPARE(fill_placeholder(command, u"<BMP>"_s, path), filled);
    }

    void firstCharacterAloneLeadsHome_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("home");
        QTest::addColumn<QString>("expanded");

        QTest::newRow("default file") << u"~/recognized.txt"_s << u"/home/a"_s << u"/home/a/recognized.txt"_s;
        QTest::newRow("tilde alone") << u"~"_s << u"/home/a"_s << u"/home/a"_s;
        QTest::newRow("name behind the tilde") << u"~name/file"_s << u"/home/a"_s << u"/home/aname/file"_s;
        QTest::newRow("second tilde") << u"~/~x"_s << u"/home/a"_s << u"/home/a/~x"_s;
        QTest::newRow("tilde further back") << u"/tmp/~x"_s << u"/home/a"_s << u"/tmp/~x"_s;
        QTest::newRow("blank before it") << u" ~/x"_s << u"/home/a"_s << u" ~/x"_s;
        QTest::newRow("home with blanks") << u"~/x"_s << u"/home/a b"_s << u"/home/a b/x"_s;
        QTest::newRow("no home, which is the root then") << u"~/x"_s << u"/"_s << u"//x"_s;
        QTest::newRow("empty path") << QString() << u"/home/a"_s << QString();
    }
    void firstCharacterAloneLeadsHome()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, home);
        QFETCH(const QString, expanded);

        QCOMPARE(expand_home(path, home), expanded);
    }
};

QTEST_GUILESS_MAIN(tst_tool_commands)
#include "tst_tool_commands.moc"

#include "argument_message.h"

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
};

QTEST_APPLESS_MAIN(tst_argument_message)
#include "tst_argument_message.moc"

#include "QtSingletonPrivate.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_QtSingletonPrivate : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsKnownAtFirst()
    {
        const QtSingletonPrivate d;

        QCOMPARE(d.selection, 0UL);
        QCOMPARE(d.typeAtom, 0UL);
        QCOMPARE(d.listenerAtom, 0UL);
        QVERIFY(!d.listener);
        QVERIFY(!d.owner);
    }

    void namesAreMadeOfPrintableAsciiButTheBlank()
    {
        const QtSingletonPrivate d;

        QCOMPARE(d.atomChars.size(), 94);
        for (int c = 0; c < 256; ++c)
            QCOMPARE(d.atomChars.contains(static_cast<char>(c)), c >= 33 && c <= 126);
    }

    void selectionIsNamedByIdentityAndUser_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("user");
        QTest::addColumn<QByteArray>("name");

        QTest::newRow("plain") << u"/usr/bin/tool"_s << u"alice"_s << "_/usr/bin/toolalice"_ba;
        QTest::newRow("another user") << u"/usr/bin/tool"_s << u"bob"_s << "_/usr/bin/toolbob"_ba;
        QTest::newRow("user unknown") << u"/usr/bin/tool"_s << QString() << "_/usr/bin/tool"_ba;
        QTest::newRow("underscore in front already") << u"_tool"_s << u"alice"_s << "_toolalice"_ba;
        QTest::newRow("no identity") << QString() << u"alice"_s << "_alice"_ba;
        QTest::newRow("nothing at all") << QString() << QString() << ""_ba;
        QTest::newRow("blank") << u"/my tools/a b"_s << u"alice"_s << "_/my_tools/a_balice"_ba;
        QTest::newRow("two bytes beyond ASCII") << u"/opt/\u00e9"_s << u"alice"_s << "_/opt/__alice"_ba;
        QTest::newRow("control characters") << u"/a\tb\n"_s << u"\x7f"_s << "_/a_b__"_ba;
        const QByteArray allowed = QtSingletonPrivate().atomChars;
        QTest::newRow("what is allowed stays") << QString::fromLatin1(allowed) << QString() << '_' + allowed;
    }

    void selectionIsNamedByIdentityAndUser()
    {
        QFETCH(const QString, id);
        QFETCH(const QString, user);

        QTEST(QtSingletonPrivate().selectionName(id, user), "name");
    }

    void differentPathsMayShareAName()
    {
        const QtSingletonPrivate d;

        QCOMPARE(d.selectionName(u"/a b"_s, u"u"_s), d.selectionName(u"/a_b"_s, u"u"_s));
    }

    void thisProcessHasAUser() { QVERIFY(!login_name().isEmpty()); }
};

QTEST_GUILESS_MAIN(tst_QtSingletonPrivate)
#include "tst_QtSingletonPrivate.moc"

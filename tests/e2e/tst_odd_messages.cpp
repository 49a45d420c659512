#include "ImageManagerProgram.h"
#include "SingleInstanceTest.h"

#include <QFile>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

/// Messages that no start of the program would write.
class tst_odd_messages : public SingleInstanceTest
{
    Q_OBJECT

private slots:
    void tenMebibytesThatAreNoUtf8CostABoxAlone()
    {
        const Place place;
        ImageManagerProgram first(place);
        first.process().discardErrors(); // it repeats all of it there
        QVERIFY(first.open({place.page(u"a.bmp"_s)}));

        writeMessage("imagemanager:" + QByteArray(10 << 20, '\xfe') + ':' + place.page(u"b.bmp"_s).toUtf8());

        QCOMPARE(first.answer(u"OK"_s).title, u"Load failed"_s);
        QTRY_COMPARE_WITH_TIMEOUT(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}), Program::patienceMs);
        QCOMPARE(first.close(), 0);
    }

    void messageThatIsRemovedBeforeItIsReadDoesNothing()
    {
        OpenProgram first;
        const auto process = static_cast<pid_t>(first.process().processId());

        QCOMPARE(::kill(process, SIGSTOP), 0);
        writeMessage("imagemanager:" + first.place.page(u"b.bmp"_s).toUtf8());
        m_peer.remove(owner(), m_selection);
        QCOMPARE(::kill(process, SIGCONT), 0);

        QCOMPARE(startAgain(first.place, {first.place.page(u"c.bmp"_s)}), 0);
        QTRY_COMPARE_WITH_TIMEOUT(first.tabTitles(), (QStringList{u"a.bmp"_s, u"c.bmp"_s}), Program::patienceMs);
        QCOMPARE(first.close(), 0);
    }

    void messageOfColonsAloneEndsTheProgram()
    {
        OpenProgram first;

        writeMessage(QByteArray(1000, ':')); // no file at all, as a start without any

        QCOMPARE(first.process().waitForExit(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_odd_messages)
#include "tst_odd_messages.moc"

#include "DiagnosticLines.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_DiagnosticLines : public QObject
{
    Q_OBJECT

private slots:
    void linesOfAllLevelsAreRecordedInOrder();
    void debugLinesNeedNoAnnouncement();
    void announcedWarningIsNoFailure();
    void announcementCoversOneLineOnly();
    void patternCoversTheWholeLine();
    void announcedLineThatHasNotComeIsMissing();
    void announcedDebugLineIsNoLongerMissing();
    void warningNotAnnouncedFailsTheTest();
    void announcedLineThatNeverCameFailsTheTest();
    void formerHandlerIsBackAfterwards();
};

void tst_DiagnosticLines::linesOfAllLevelsAreRecordedInOrder()
{
    DiagnosticLines diagnostics;
    diagnostics.expect(u"second"_s);

    qDebug("first");
    qWarning("second");
    qDebug("third %d", 3);

    QCOMPARE(diagnostics.lines(), (QStringList{u"first"_s, u"second"_s, u"third 3"_s}));
}

void tst_DiagnosticLines::debugLinesNeedNoAnnouncement()
{
    const DiagnosticLines diagnostics;

    qDebug("just told");

    QVERIFY(diagnostics.contains(u"just told"_s));
    QCOMPARE(diagnostics.unannounced(), QStringList());
}

void tst_DiagnosticLines::announcedWarningIsNoFailure()
{
    DiagnosticLines diagnostics;
    diagnostics.expect(u"disk (full)"_s);

    qWarning("disk (full)");

    QCOMPARE(diagnostics.unannounced(), QStringList());
    QCOMPARE(diagnostics.missing(), QStringList());
}

void tst_DiagnosticLines::announcementCoversOneLineOnly()
{
    QEXPECT_FAIL("", "the second warning is not announced", Continue);
    {
        DiagnosticLines diagnostics;
        diagnostics.expect(u"disk full"_s);
        qWarning("disk full");
        qWarning("disk full");
    }
}

void tst_DiagnosticLines::patternCoversTheWholeLine()
{
    DiagnosticLines diagnostics;
    diagnostics.expect(QRegularExpression(u"page \\d+"_s));

    qDebug("page 12 of 20");
    QCOMPARE(diagnostics.missing(), QStringList(u"page \\d+"_s));
    qDebug("page 12");

    QCOMPARE(diagnostics.missing(), QStringList());
}

void tst_DiagnosticLines::announcedLineThatHasNotComeIsMissing()
{
    DiagnosticLines diagnostics;
    diagnostics.expect(u"saved"_s);

    QCOMPARE(diagnostics.missing(), QStringList(u"saved"_s));
    qDebug("saved");
}

void tst_DiagnosticLines::announcedDebugLineIsNoLongerMissing()
{
    DiagnosticLines diagnostics;
    diagnostics.expect(u"saved"_s);

    qDebug("saved");

    QCOMPARE(diagnostics.missing(), QStringList());
}

void tst_DiagnosticLines::warningNotAnnouncedFailsTheTest()
{
    QEXPECT_FAIL("", "nobody announced it", Continue);
    {
        const DiagnosticLines diagnostics;
        qWarning("out of the blue");
    }
}

void tst_DiagnosticLines::announcedLineThatNeverCameFailsTheTest()
{
    QEXPECT_FAIL("", "the line does not come", Continue);
    {
        DiagnosticLines diagnostics;
        diagnostics.expect(u"saved"_s);
    }
}

void tst_DiagnosticLines::formerHandlerIsBackAfterwards()
{
    const QtMessageHandler before = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(before);
    {
        const DiagnosticLines diagnostics;
    }
    const QtMessageHandler after = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(after);

    QVERIFY(after == before);
}

QTEST_GUILESS_MAIN(tst_DiagnosticLines)
#include "tst_DiagnosticLines.moc"

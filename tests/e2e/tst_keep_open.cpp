#include "ImageManagerProgram.h"
#include "SingleInstanceTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A home whose settings say that a program with tabs stays.
class KeepingPlace : public Place
{
public:
    KeepingPlace() { writeSettings("keep_open=true"); }
};

} // namespace

/// The setting with which a mistyped name costs no work.
class tst_keep_open : public SingleInstanceTest
{
    Q_OBJECT

private slots:
    void laterStartThatOpensNothingLeavesTheTabs_data();
    void laterStartThatOpensNothingLeavesTheTabs();
    void firstStartThatOpensNothingEnds();
    void nameWithAColonOpens();
};

void tst_keep_open::laterStartThatOpensNothingLeavesTheTabs_data()
{
    QTest::addColumn<QStringList>("names");

    QTest::newRow("no file") << QStringList();
    QTest::newRow("missing file") << QStringList{u"missing.bmp"_s};
}

void tst_keep_open::laterStartThatOpensNothingLeavesTheTabs()
{
    QFETCH(const QStringList, names);
    const KeepingPlace place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));

    QStringList paths;
    for (const QString &name : names)
        paths.append(place.path(name));
    QCOMPARE(startAgain(place, paths), 0);
    for (qsizetype i = 0; i < names.size(); ++i)
        QCOMPARE(first.answer(u"OK"_s).title, u"Load failed"_s);

    QCOMPARE(startAgain(place, {place.page(u"b.bmp"_s)}), 0); // it still takes files
    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}));
    QCOMPARE(first.close(), 0);
}

void tst_keep_open::firstStartThatOpensNothingEnds()
{
    const KeepingPlace place;
    ImageManagerProgram program(place);
    QVERIFY(program.start({place.path(u"missing.bmp"_s)}));

    QCOMPARE(program.answer(u"OK"_s).title, u"Load failed"_s);
    QCOMPARE(program.process().waitForExit(), 0);
}

void tst_keep_open::nameWithAColonOpens()
{
    const KeepingPlace place;
    ImageManagerProgram program(place);
    const QString path = place.page(u"at 12:30.bmp"_s);

    QVERIFY(program.open({path}));

    QCOMPARE(program.tabTitles(), QStringList{u"at 12:30.bmp"_s});
    QCOMPARE(program.close(), 0);
}

QTEST_GUILESS_MAIN(tst_keep_open)
#include "tst_keep_open.moc"

#include "HistoryPair.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int StepCount = 10'000;

} // namespace

class tst_UndoHistory_model : public QObject
{
    Q_OBJECT

private slots:
    void randomStepsGoAsInThePlainModel_data();
    void randomStepsGoAsInThePlainModel();
};

void tst_UndoHistory_model::randomStepsGoAsInThePlainModel_data()
{
    QTest::addColumn<quint32>("seed");

    for (const quint32 seed : {1U, 2U, 3U})
        QTest::addRow("seed %u", seed) << seed;
}

void tst_UndoHistory_model::randomStepsGoAsInThePlainModel()
{
    QFETCH(const quint32, seed);
    const TemporaryHome home;
    const LineCollector collector;
    QRandomGenerator random(seed);
    HistoryPair pair(home, [&random](int limit) { return random.bounded(limit); });

    for (int i = 0; i < StepCount; ++i) {
        const QString difference = pair.step();
        QVERIFY2(difference.isEmpty(), qPrintable(u"step %1: %2"_s.arg(i).arg(difference)));
        if (i % 200 == 0)
            QCOMPARE(numbers_in(home), pair.expectedNumbers());
    }
}

QTEST_GUILESS_MAIN(tst_UndoHistory_model)
#include "tst_UndoHistory_model.moc"

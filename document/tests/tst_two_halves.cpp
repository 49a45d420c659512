#include "two_halves.h"

#include <QList>
#include <QTest>

#include <algorithm>
#include <thread>

class tst_two_halves : public QObject
{
    Q_OBJECT

private slots:
    void everyStepIsDoneOnce_data()
    {
        QTest::addColumn<std::size_t>("count");
        QTest::addColumn<std::size_t>("worthwhile");

        for (const std::size_t count : {0, 1, 2, 3, 99, 100, 101, 10000}) {
            for (const std::size_t worthwhile : {0, 1, 100})
                QTest::addRow("%zu steps, worthwhile from %zu", count, worthwhile) << count << worthwhile;
        }
    }

    void everyStepIsDoneOnce()
    {
        QFETCH(const std::size_t, count);
        QFETCH(const std::size_t, worthwhile);
        QList<int> done(static_cast<qsizetype>(count), 0);
        int *const first = done.data();

        in_two_halves(count, worthwhile, [first](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; ++i)
                ++first[i];
        });

        QCOMPARE(done, QList<int>(static_cast<qsizetype>(count), 1));
    }

    void fewStepsAreDoneHere()
    {
        const std::thread::id here = std::this_thread::get_id();
        int calls = 0;

        in_two_halves(99, 100, [&](std::size_t begin, std::size_t end) {
            ++calls;
            QCOMPARE(begin, std::size_t{0});
            QCOMPARE(end, std::size_t{99});
            QVERIFY(std::this_thread::get_id() == here);
        });

        QCOMPARE(calls, 1);
    }
};

QTEST_APPLESS_MAIN(tst_two_halves)
#include "tst_two_halves.moc"

// The commands that enlarge a page, on a machine with little free memory.

#include "NextBox.h"
#include "NextDialog.h"
#include "private_mounts.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The machine's memory as the program sees it.
StandInFile free_memory(const QByteArray &lines)
{
    return {u"/proc/meminfo"_s, lines};
}

/// The largest factor that a scale command offers for the current page, in tenths; 0 without a dialog.
int offered_tenths(const WindowFixture &fixture, const QString &action)
{
    int tenths = 0;
    {
        const NextDialog dialog([&tenths](QDialog &scale) {
            tenths = scale.findChild<QSlider *>()->maximum();
            scale.reject();
        });
        fixture.action(action)->trigger();
    }
    return tenths;
}

} // namespace

class tst_ImageManager_little_memory : public QObject
{
    Q_OBJECT

private slots:
    void scalingOffersWhatMemoryAllows_data()
    {
        QTest::addColumn<QByteArray>("memory");
        QTest::addColumn<int>("oneSide");
        QTest::addColumn<int>("bothSides");

        // A tenth of the free bytes less 5242880 is the number of pixels allowed; a page of 64 by 48 has 3072.
        QTest::newRow("unknown") << QByteArray() << 10 << 10;
        QTest::newRow("none") << QByteArray("MemFree: 0 kB\nSwapFree: 0 kB\n") << 10 << 10;
        // 51200 kB: 5242880 pixels less the reserve leave none.
        QTest::newRow("the reserve") << QByteArray("MemFree: 51200 kB\nSwapFree: 0 kB\n") << 10 << 10;
        // 51260 kB: 5249024 - 5242880 = 6144 pixels, twice the page; the root of 2 on a tenth is 1.4.
        QTest::newRow("two pages") << QByteArray("MemFree: 51260 kB\nSwapFree: 0 kB\n") << 20 << 14;
        // The same 51260 kB: as swap; as 4 tenths of the buffers less 8192; as 8 tenths of the cache less 24576.
        QTest::newRow("two pages of swap") << QByteArray("MemFree: 0 kB\nSwapFree: 51260 kB\n") << 20 << 14;
        QTest::newRow("two pages of buffers") << QByteArray("Buffers: 148630 kB\n") << 20 << 14;
        QTest::newRow("two pages of cache") << QByteArray("Cached: 94795 kB\n") << 20 << 14;
        QTest::newRow("plenty") << QByteArray("MemFree: 4000000 kB\nSwapFree: 0 kB\n") << 30 << 30;
    }

    void scalingOffersWhatMemoryAllows()
    {
        QFETCH(QByteArray, memory);
        WindowFixture fixture(u"a.png"_s);
        const StandInFile machine = free_memory(memory);

        QTEST(offered_tenths(fixture, u"scale_horizontally"_s), "oneSide");
        QTEST(offered_tenths(fixture, u"scale_vertically"_s), "oneSide");
        QTEST(offered_tenths(fixture, u"scale_proportionally"_s), "bothSides");
    }

    void resizingRefusesWhatMemoryCannotHold()
    {
        WindowFixture fixture(u"a.png"_s);
        const StandInFile machine = free_memory("MemFree: 51260 kB\nSwapFree: 0 kB\n"); // 6144 pixels
        QString refusal;
        const NextDialog dialog([&refusal](QDialog &resize) {
            const QList<QLineEdit *> edits = resize.findChildren<QLineEdit *>();
            QCOMPARE(edits.size(), 2);
            auto *const ok = resize.findChild<QPushButton *>(u"my_ok_btn"_s);
            edits.at(0)->setText(u"100"_s);
            edits.at(1)->setText(u"62"_s); // 6144 / 100 is 61
            {
                const NextBox box(QMessageBox::Ok);
                ok->click();
                refusal = box.text();
            }
            QVERIFY(resize.isVisible());
            edits.at(1)->setText(u"61"_s);
            ok->click();
        });

        fixture.action(u"image_resize"_s)->trigger();

        QCOMPARE(refusal, u"Decrease Width and Height\nto fit the image in computer's memory."_s);
        QCOMPARE(std::as_const(*fixture.currentView()->document()).page(1).size(), QSize(100, 61));
    }
};

TEST_MAIN_APART(QApplication, tst_ImageManager_little_memory, leave_common_mounts)
#include "tst_ImageManager_little_memory.moc"

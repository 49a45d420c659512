// The commands that give a page another size.

#include "NextBox.h"
#include "Q3Canvas.h"
#include "WindowFixture.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QSlider>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_ImageManager_sizes : public QObject
{
    Q_OBJECT

private slots:
    void croppingKeepsTheSelectionAloneAndEndsIt()
    {
        WindowFixture fixture(u"a.png"_s);
        const QImage page = fixture.page();
        fixture.select(QPoint(10, 12), QPoint(29, 31));

        fixture.action(u"image_crop"_s)->trigger();

        QVERIFY(compare_pictures(fixture.page(), page.copy(10, 12, 20, 20)));
        QCOMPARE(fixture.currentView()->canvas()->size(), QSize(20, 20));
        QVERIFY(!fixture.enabled(u"image_crop"_s));
        fixture.action(u"edit_undo"_s)->trigger();
        QVERIFY(compare_pictures(fixture.page(), page));
    }

    void aFailedCropRollsBackAndCostsTheHistory()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s, u"Invert"_s);
        const QImage page = fixture.page();
        fixture.select(QPoint(5, 5), QPoint(10, 10));
        fixture.select(QPoint(40, 40), QPoint(20, 20)); // the second backwards one keeps its negative size

        fixture.action(u"image_crop"_s)->trigger();

        QVERIFY(compare_pictures(fixture.page(), page));
        QVERIFY(fixture.snapshots().isEmpty());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QVERIFY(!fixture.enabled(u"edit_redo"_s));

        fixture.edit(u"image_invert"_s, u"Invert"_s); // after a rollback the next edit writes no snapshot
        QVERIFY(fixture.snapshots().isEmpty());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
    }

    void resizingAsksForTheSize()
    {
        WindowFixture fixture(u"a.png"_s);
        const NextDialog dialog([](QDialog &resize) {
            QCOMPARE(resize.objectName(), u"image_resize_p_dialog"_s);
            const QList<QLineEdit *> edits = resize.findChildren<QLineEdit *>();
            QCOMPARE(edits.size(), 2);
            QCOMPARE(edits.at(0)->text(), u"64"_s);
            edits.at(0)->setText(u"32"_s);
            edits.at(1)->setText(u"40"_s);
            WindowFixture::pressOk(resize, u"Resize"_s);
        });

        fixture.action(u"image_resize"_s)->trigger();

        QCOMPARE(fixture.page().size(), QSize(32, 40));
        QCOMPARE(fixture.currentView()->canvas()->size(), QSize(32, 40));
    }

    void scalingAppliesTheFactorToItsSides_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("expected");

        // Half of 64 by 48: (63 * 0.5) + 1 = 32, (47 * 0.5) + 1 = 24.
        QTest::newRow("scale_proportionally")
            << u"Scale Proportionally"_s << u"image_scale_p_dialog"_s << QSize(32, 24);
        QTest::newRow("scale_vertically") << u"Scale Vertically"_s << u"image_scale_v_dialog"_s << QSize(64, 24);
        QTest::newRow("scale_horizontally") << u"Scale Horizontally"_s << u"image_scale_h_dialog"_s << QSize(32, 48);
    }

    void scalingAppliesTheFactorToItsSides()
    {
        QFETCH(QString, title);
        QFETCH(QString, name);
        WindowFixture fixture(u"a.png"_s);
        const NextDialog dialog([&](QDialog &scale) {
            QCOMPARE(scale.objectName(), name);
            auto *const slider = scale.findChild<QSlider *>();
            QCOMPARE(slider->value(), 10);
            slider->setValue(5);
            WindowFixture::pressOk(scale, title);
        });

        fixture.action(QString::fromLatin1(QTest::currentDataTag()))->trigger();

        QTEST(fixture.page().size(), "expected");
        QTEST(fixture.currentView()->canvas()->size(), "expected");
    }

    void aScaleOfOneStillWritesASnapshot()
    {
        WindowFixture fixture(u"a.png"_s);
        const QImage page = fixture.page();

        fixture.edit(u"scale_proportionally"_s, u"Scale Proportionally"_s);

        QCOMPARE(fixture.snapshots().size(), 1);
        QVERIFY(compare_pictures(fixture.page(), page));
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
    }

    void theSmallestScaleIsATenthAndTheLargestThree()
    {
        WindowFixture fixture(u"a.png"_s);
        const NextDialog dialog([](QDialog &scale) {
            auto *const slider = scale.findChild<QSlider *>();
            QCOMPARE(slider->minimum(), 1);
            QCOMPARE(slider->maximum(), 30); // a small page on any machine that runs tests
            scale.reject();
        });

        fixture.action(u"scale_proportionally"_s)->trigger();
    }
};

QTEST_MAIN(tst_ImageManager_sizes)
#include "tst_ImageManager_sizes.moc"

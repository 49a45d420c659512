// The commands that give a page another size.

#include "edit_steps.h"
#include "NextBox.h"
#include "Q3Canvas.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
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
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage page = page_of(fixture);
        fixture.select(QPoint(10, 12), QPoint(29, 31));

        fixture.action(u"image_crop"_s)->trigger();

        QVERIFY(compare_pictures(page_of(fixture), page.copy(10, 12, 20, 20)));
        QCOMPARE(fixture.currentView()->canvas()->size(), QSize(20, 20));
        QVERIFY(!fixture.enabled(u"image_crop"_s));
        fixture.action(u"edit_undo"_s)->trigger();
        QVERIFY(compare_pictures(page_of(fixture), page));
    }

    void aFailedCropRollsBackAndCostsTheHistory()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        edit(fixture, u"image_invert"_s, u"Invert"_s);
        const QImage page = page_of(fixture);
        fixture.select(QPoint(5, 5), QPoint(10, 10));
        fixture.select(QPoint(40, 40), QPoint(20, 20)); // the second backwards one keeps its negative size

        fixture.action(u"image_crop"_s)->trigger();

        QVERIFY(compare_pictures(page_of(fixture), page));
        QVERIFY(snapshots(fixture).isEmpty());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QVERIFY(!fixture.enabled(u"edit_redo"_s));

        edit(fixture, u"image_invert"_s, u"Invert"_s); // after a rollback the next edit writes no snapshot
        QVERIFY(snapshots(fixture).isEmpty());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
    }

    void resizingAsksForTheSize()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        const NextDialog dialog([](QDialog &resize) {
            QCOMPARE(resize.objectName(), u"image_resize_p_dialog"_s);
            const QList<QLineEdit *> edits = resize.findChildren<QLineEdit *>();
            QCOMPARE(edits.size(), 2);
            QCOMPARE(edits.at(0)->text(), u"64"_s);
            edits.at(0)->setText(u"32"_s);
            edits.at(1)->setText(u"40"_s);
            accepted(u"Resize"_s)(resize);
        });

        fixture.action(u"image_resize"_s)->trigger();

        QCOMPARE(page_of(fixture).size(), QSize(32, 40));
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
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        const NextDialog dialog([&](QDialog &scale) {
            QCOMPARE(scale.objectName(), name);
            auto *const slider = scale.findChild<QSlider *>();
            QCOMPARE(slider->value(), 10);
            slider->setValue(5);
            accepted(title)(scale);
        });

        fixture.action(QString::fromLatin1(QTest::currentDataTag()))->trigger();

        QTEST(page_of(fixture).size(), "expected");
        QTEST(fixture.currentView()->canvas()->size(), "expected");
    }

    void aScaleOfOneStillWritesASnapshot()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage page = page_of(fixture);

        edit(fixture, u"scale_proportionally"_s, u"Scale Proportionally"_s);

        QCOMPARE(snapshots(fixture).size(), 1);
        QVERIFY(compare_pictures(page_of(fixture), page));
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
    }

    void theSmallestScaleIsATenthAndTheLargestThree()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
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

#include "TemporaryHome.h"
#include "window_settings.h"

#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_window_settings : public QObject
{
    Q_OBJECT

private slots:
    void aMissingValueIsTheFallback()
    {
        const TemporaryHome home;

        QCOMPARE(read_window_setting(WindowSetting::Width, 335).toInt(), 335);
    }

    void aValueLiesInTheGroupOfTheEditor()
    {
        const TemporaryHome home;

        QVERIFY(write_window_setting(WindowSetting::ShowLabels, false));

        QCOMPARE(read_window_setting(WindowSetting::ShowLabels, true).toBool(), false);
        QCOMPARE(QSettings().value(u"image_editor/show_labels"_s).toString(), u"false"_s);
    }

    void anEmptyTextThatIsStoredBeatsTheFallback()
    {
        const TemporaryHome home;

        QVERIFY(write_window_setting(WindowSetting::Layout, QString(u""_s)));

        QCOMPARE(read_window_setting(WindowSetting::Layout, u"fallback"_s).toString(), QString());
    }

    void aStoredSizeThatIsNoneIsTheFallbackAndNoneIsLargerThanTheScreen_data()
    {
        QTest::addColumn<QVariant>("width");
        QTest::addColumn<QVariant>("height");
        QTest::addColumn<QSize>("size");

        QTest::newRow("a size") << QVariant(640) << QVariant(480) << QSize(640, 480);
        QTest::newRow("nothing") << QVariant() << QVariant() << QSize(335, 564);
        QTest::newRow("a text") << QVariant(u"wide"_s) << QVariant(480) << QSize(335, 480);
        QTest::newRow("an empty text") << QVariant(640) << QVariant(u""_s) << QSize(640, 564);
        QTest::newRow("none at all") << QVariant(0) << QVariant(0) << QSize(335, 564);
        QTest::newRow("negative") << QVariant(-640) << QVariant(-1) << QSize(335, 564);
        QTest::newRow("no whole number") << QVariant(u"640.5"_s) << QVariant(480) << QSize(335, 480);
        QTest::newRow("beyond all numbers") << QVariant(QString(30, u'9')) << QVariant(480) << QSize(335, 480);
        QTest::newRow("a very large number") << QVariant(u"99999999999"_s) << QVariant(480) << QSize(1280, 480);
        QTest::newRow("larger than the screen") << QVariant(5000) << QVariant(2147483647) << QSize(1280, 1024);
        QTest::newRow("as large as the screen") << QVariant(1280) << QVariant(1024) << QSize(1280, 1024);
    }

    void aStoredSizeThatIsNoneIsTheFallbackAndNoneIsLargerThanTheScreen()
    {
        QFETCH(const QVariant, width);
        QFETCH(const QVariant, height);
        const TemporaryHome home;
        if (width.isValid())
            QVERIFY(write_window_setting(WindowSetting::Width, width));
        if (height.isValid())
            QVERIFY(write_window_setting(WindowSetting::Height, height));

        QTEST(read_window_size(QSize(335, 564), QSize(1280, 1024)), "size");
    }
};

QTEST_GUILESS_MAIN(tst_window_settings)
#include "tst_window_settings.moc"

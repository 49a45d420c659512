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
};

QTEST_GUILESS_MAIN(tst_window_settings)
#include "tst_window_settings.moc"

#include "application_icon.h"

#include <QPixmap>
#include <QTest>

class tst_application_icon : public QObject
{
    Q_OBJECT

private slots:
    void theIconHasItsOwnPictureForEverySize()
    {
        QCOMPARE(application_icon().availableSizes(),
                 (QList<QSize>{{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}}));
    }

    void theGroundAroundThePageIsTransparent()
    {
        const QImage shown = application_icon().pixmap(48, 48).toImage();

        QCOMPARE(qAlpha(shown.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(shown.pixel(24, 24)), 255);
    }
};

QTEST_MAIN(tst_application_icon)
#include "tst_application_icon.moc"

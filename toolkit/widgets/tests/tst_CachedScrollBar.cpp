#include "CachedScrollBar.h"

#include <QImage>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Largest difference of a channel; parts that are drawn one over the other are rounded once more.
int largest_difference(const QImage &a, const QImage &b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = std::max(
                {largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

} // namespace

/// Each bar beside a plain one with the same values.
class tst_CachedScrollBar : public QObject
{
    Q_OBJECT

private slots:
    void drawsWhatAPlainBarDraws_data();
    void drawsWhatAPlainBarDraws();
};

void tst_CachedScrollBar::drawsWhatAPlainBarDraws_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (const QString &style : QStyleFactory::keys()) {
        const QByteArray name = style.toLatin1();
        QTest::addRow("%s, upright", name.constData()) << style << Qt::Vertical << Qt::LeftToRight;
        QTest::addRow("%s, level", name.constData()) << style << Qt::Horizontal << Qt::LeftToRight;
        QTest::addRow("%s, level, from the right", name.constData()) << style << Qt::Horizontal << Qt::RightToLeft;
    }
}

void tst_CachedScrollBar::drawsWhatAPlainBarDraws()
{
    QFETCH(const QString, style);
    QFETCH(const Qt::Orientation, orientation);
    QFETCH(const Qt::LayoutDirection, direction);
    const std::unique_ptr<QStyle> wanted(QStyleFactory::create(style));

    QWidget window;
    CachedScrollBar bar(orientation, &window);
    QScrollBar plain(orientation, &window);
    for (QScrollBar *const each : {static_cast<QScrollBar *>(&bar), &plain}) {
        each->setStyle(wanted.get());
        each->setLayoutDirection(direction);
    }

    const auto compare = [&](int maximum, int pageStep, int value, int length) {
        for (QScrollBar *const each : {static_cast<QScrollBar *>(&bar), &plain}) {
            const int width = each->sizeHint().boundedTo({100, 100}).width();
            const int height = each->sizeHint().height();
            each->resize(orientation == Qt::Vertical ? QSize(width, length) : QSize(length, height));
            each->setRange(0, maximum);
            each->setPageStep(pageStep);
            each->setValue(value);
        }
        return largest_difference(bar.grab().toImage(), plain.grab().toImage());
    };
    for (int value = 0; value <= 4000; value += 250)
        QVERIFY2(compare(4000, 1000, value, 400) <= 2, qPrintable(u"at %1"_s.arg(value)));
    // A page of another size, another length, a bar without a way to go, and one that works no more.
    QVERIFY(compare(400, 100, 37, 400) <= 2);
    QVERIFY(compare(9000, 100, 37, 401) <= 2);
    QVERIFY(compare(9000, 100, 37, 90) <= 2);
    QVERIFY(compare(0, 100, 0, 90) <= 2);
    window.setEnabled(false);
    QVERIFY(compare(4000, 1000, 1700, 400) <= 2);
    QPalette palette;
    palette.setColor(QPalette::Button, Qt::darkGreen);
    palette.setColor(QPalette::Window, Qt::darkGreen);
    window.setPalette(palette);
    QVERIFY(compare(4000, 1000, 1700, 400) <= 2);
}

QTEST_MAIN(tst_CachedScrollBar)
#include "tst_CachedScrollBar.moc"

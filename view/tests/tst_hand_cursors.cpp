#include "hand_cursors.h"

#include <QBitmap>
#include <QRegularExpression>
#include <QTest>

namespace {

/// Black pixels of the outline and opaque pixels of the shape in row @p y, as text.
QString row_of(const QBitmap &bitmap, int y)
{
    const QImage image = bitmap.toImage();
    QString row;
    for (int x = 0; x < image.width(); ++x)
        row += image.pixel(x, y) == qRgb(0, 0, 0) ? '#' : '.';
    return row;
}

} // namespace

class tst_hand_cursors : public QObject
{
    Q_OBJECT

private slots:
    void handsHaveTheirShapeAndTheirMiddleAsHotSpot_data()
    {
        QTest::addColumn<bool>("open");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("outline");
        QTest::addColumn<QString>("shape");

        const QString none(32, QLatin1Char('.'));
        QTest::newRow("open, above the fingers") << true << 6 << none << none;
        QTest::newRow("open, finger tips") << true << 8 << "..........##.#..###............."
                                           << "..........##.######.............";
        QTest::newRow("open, palm") << true << 14 << ".......#..##..........#........."
                                    << ".......################.........";
        QTest::newRow("open, wrist") << true << 22 << "............#......#............"
                                     << "............########............";
        QTest::newRow("open, below the wrist") << true << 23 << none << none;
        QTest::newRow("closed, above the knuckles") << false << 11 << none << none;
        QTest::newRow("closed, knuckles") << false << 12 << "...........##.##.##............."
                                          << "...........##.##.##.............";
        QTest::newRow("closed, palm") << false << 17 << ".........#...........#.........."
                                      << ".........#############..........";
        QTest::newRow("closed, wrist") << false << 22 << "............#......#............"
                                       << "............########............";
    }

    void handsHaveTheirShapeAndTheirMiddleAsHotSpot()
    {
        QFETCH(bool, open);
        QFETCH(int, row);
        QTest::failOnWarning(QRegularExpression(QStringLiteral("."))); // as of pixels beside the picture
        const QCursor &cursor = open ? open_hand_cursor() : closed_hand_cursor();

        QCOMPARE(cursor.bitmap().size(), QSize(32, 32));
        QTEST(row_of(cursor.bitmap(), row), "outline");
        QTEST(row_of(cursor.mask(), row), "shape");
        QCOMPARE(cursor.hotSpot(), QPoint(16, 16));
        QCOMPARE(cursor.shape(), Qt::BitmapCursor);
    }

    void eachHandIsMadeOnce()
    {
        QCOMPARE(&open_hand_cursor(), &open_hand_cursor());
        QCOMPARE(&closed_hand_cursor(), &closed_hand_cursor());
    }
};

QTEST_MAIN(tst_hand_cursors)
#include "tst_hand_cursors.moc"

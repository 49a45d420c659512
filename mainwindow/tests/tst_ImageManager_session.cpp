// A long session on a page as scanners deliver them.

#include "NextDialog.h"
#include "WindowFixture.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include <array>
#include <ctime>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PageSize(4960, 7016); ///< A4 at 600 dpi

/// A grey page of which no two places look alike for long.
QImage scanned_page()
{
    QImage page(PageSize, QImage::Format_Indexed8);
    for (int i = 0; i < 256; ++i)
        page.setColor(i, qRgb(i, i, i));
    quint32 state = 1;
    for (int y = 0; y < page.height(); ++y) {
        uchar *const line = page.scanLine(y);
        for (int x = 0; x < page.width(); ++x) {
            state = state * 1664525 + 1013904223;
            line[x] = static_cast<uchar>((x / 20 + y / 30 + (state >> 28)) % 256);
        }
    }
    return page;
}

void accept(QDialog &dialog)
{
    WindowFixture::pressOk(dialog);
}

/// One command: its action, and what is entered into its dialog.
struct Step
{
    const char *action;
    void (*fillIn)(QDialog &dialog) = accept; ///< null for a command without a dialog
};

template <int Value> void set_slider(QDialog &dialog)
{
    dialog.findChild<QSlider *>()->setValue(Value);
    accept(dialog);
}

void enter_size(QDialog &dialog)
{
    const QList<QLineEdit *> fields = dialog.findChildren<QLineEdit *>();
    QCOMPARE(fields.size(), 2);
    fields.at(0)->setText(u"1500"_s);
    fields.at(1)->setText(u"2100"_s);
    accept(dialog);
}

constexpr std::array Session{
    Step{"rotate_cw"},
    Step{"flip_horizontally"},
    Step{"image_invert"},
    Step{"rotate_180"},
    Step{"image_brightness", set_slider<20>}, // a grey page keeps its look
    Step{"depth_32"},
    Step{"image_brightness", set_slider<25>},
    Step{"image_contrast", set_slider<-30>},
    Step{"rotate_ccw"},
    Step{"flip_vertically"},
    Step{"image_invert"},
    Step{"image_crop", nullptr},
    Step{"scale_proportionally", set_slider<8>},
    Step{"image_contrast", set_slider<40>},
    Step{"scale_horizontally", set_slider<9>},
    Step{"depth_8"},
    Step{"depth_1"},
    Step{"rotate_cw"},
    Step{"depth_32"},
    Step{"image_resize", enter_size},
};

void run(const WindowFixture &fixture, const Step &step)
{
    QAction *const action = fixture.action(QString::fromLatin1(step.action));
    QVERIFY(action->isEnabled());
    if (!step.fillIn) {
        action->trigger();
        return;
    }
    const NextDialog dialog(step.fillIn);
    action->trigger();
}

/// What a page looks like, in few bytes. A 1-bit page may come back with its two colours exchanged, and its bits.
struct Look
{
    QSize size;
    int depth = 0;
    size_t sum = 0;

    bool operator==(const Look &) const = default;
};

Look look_of(const QImage &page)
{
    Look look{.size = page.size(), .depth = page.depth()};
    for (int y = 0; y < page.height(); ++y) {
        const QImage line = page.copy(0, y, page.width(), 1).convertToFormat(QImage::Format_RGB32);
        look.sum = qHashBits(line.constBits(), static_cast<size_t>(line.sizeInBytes()), look.sum);
    }
    return look;
}

qint64 bytes_of_snapshots(const WindowFixture &fixture)
{
    qint64 bytes = 0;
    for (const QFileInfo &file : QDir(fixture.home.filePath(u"tmp"_s)).entryInfoList(QDir::Files))
        bytes += file.size();
    return bytes;
}

} // namespace

class tst_ImageManager_session : public QObject
{
    Q_OBJECT

private slots:
    void twentyEditsAreUndoneToTheFirstPictureAndRedoneToTheLast()
    {
        constexpr qint64 mostBytes = 2'000'000'000;
        constexpr double mostSeconds = 60; // of the processor, so that a busy machine may take its time
        WindowFixture fixture;
        const QString path = fixture.home.filePath(u"scan.bmp"_s);
        QVERIFY(scanned_page().save(path));
        QVERIFY(fixture.window.load_file(path, {}, false));
        for (int i = 0; i < 4; ++i) // so that a selection takes in thousands of pixels
            fixture.action(u"view_zoom_out"_s)->trigger();
        const QImage first = fixture.page();
        QList<Look> looks{look_of(first)};
        const std::clock_t start = std::clock();

        for (const Step &step : Session) {
            if (!step.fillIn)
                fixture.select(QPoint(10, 12), QPoint(250, 300)); // times 16
            run(fixture, step);
            looks.append(look_of(fixture.page()));
        }
        const QImage last = fixture.page();
        QCOMPARE(last.size(), QSize(1500, 2100));
        QCOMPARE(last.depth(), 32);

        for (qsizetype i = looks.size() - 2; i >= 0; --i) {
            QVERIFY(fixture.enabled(u"edit_undo"_s));
            fixture.action(u"edit_undo"_s)->trigger();
            QVERIFY2(look_of(fixture.page()) == looks.at(i), qPrintable(QString::number(i)));
        }
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QVERIFY(compare_pictures(fixture.page(), first));
        QVERIFY(bytes_of_snapshots(fixture) < mostBytes);

        for (qsizetype i = 1; i < looks.size(); ++i) {
            QVERIFY(fixture.enabled(u"edit_redo"_s));
            fixture.action(u"edit_redo"_s)->trigger();
            QVERIFY2(look_of(fixture.page()) == looks.at(i), qPrintable(QString::number(i)));
        }
        QVERIFY(!fixture.enabled(u"edit_redo"_s));
        QVERIFY(compare_pictures(fixture.page(), last));
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        QVERIFY2(seconds < mostSeconds, qPrintable(QString::number(seconds)));
    }
};

QTEST_MAIN(tst_ImageManager_session)
#include "tst_ImageManager_session.moc"

// Pages that are shown smaller than they are.

#include "noise_pages.h"
#include "plain_averages.h"
#include "ViewFixture.h"

#include <QPainter>
#include <QTabWidget>

#include <algorithm>
#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int NaturalSize = 3;
constexpr int Smallest = 7;

void show_page(ImageView &view, const QImage &page)
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));
    view.replaceImage(1, page);
    QCoreApplication::processEvents(); // scroll bars follow from the event loop
}

QImage seen(const ImageView &view)
{
    return view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// @p page at 1:@p step.
QImage reduced_plainly(const QImage &page, int step)
{
    return averaged_plainly(page, {1, step}, {1, step});
}

/// What the viewport has to show of such a page.
QImage scrolled(const ImageView &view, const QImage &reduced)
{
    QImage screen(view.viewport()->size(), QImage::Format_RGB32);
    screen.fill(Qt::gray);
    QPainter painter(&screen);
    painter.drawImage(-view.contentsX(), -view.contentsY(), reduced);
    return screen;
}

/// Bytes that are allocated.
std::size_t allocated_bytes()
{
    const auto memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
}

/// A page of one colour that changes its colour without the view's knowledge.
class SecretPage
{
public:
    static constexpr QRgb First = 0xff204060;
    static constexpr QRgb Second = 0xff805030;

    explicit SecretPage(QSize size) : m_size(size), m_words(qsizetype{size.width()} * size.height(), First) { }

    [[nodiscard]] QImage image()
    {
        return {reinterpret_cast<uchar *>(m_words.data()), m_size.width(), m_size.height(), QImage::Format_RGB32};
    }
    void change() { std::fill(m_words.begin(), m_words.end(), Second); }

private:
    QSize m_size;
    QList<QRgb> m_words;
};

/// A page at 1:2 that has been shown and has changed its colour since.
struct SecretlyChanged
{
    SecretlyChanged()
    {
        show_page(fixture.view, page.image());
        if (!fixture.view.setZoomIndex(NaturalSize + 1))
            qFatal("the zoom is refused");
        QCoreApplication::processEvents();
        (void)seen(fixture.view); // averages are there now
        page.change();
    }

    SecretPage page{QSize(1600, 1200)};
    ViewFixture fixture{QSize(1600, 1200)};
};

} // namespace

class tst_ImageView_reduced : public QObject
{
    Q_OBJECT

private slots:
    void pageIsAveragedWhereverItIsScrolled_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QSize>("size");
        const QList<PageKind> kinds = page_kinds();
        for (int kind = 0; kind < kinds.size(); ++kind) {
            for (const QSize size : {QSize(803, 599), QSize(64, 48), QSize(9, 7), QSize(3, 1300)})
                QTest::addRow("%s %dx%d", kinds[kind].name, size.width(), size.height()) << kind << size;
        }
    }

    void pageIsAveragedWhereverItIsScrolled()
    {
        QFETCH(const int, kind);
        QFETCH(const QSize, size);
        const QImage page = noise_page(page_kinds()[kind], size);
        ViewFixture fixture(size);
        ImageView &view = fixture.view;
        show_page(view, page);

        for (int zoom = NaturalSize + 1; zoom <= Smallest; ++zoom) {
            QVERIFY(view.setZoomIndex(zoom));
            QCoreApplication::processEvents();
            const QImage reduced = reduced_plainly(page, 1 << (zoom - NaturalSize));
            for (const QPoint at : {QPoint(0, 0), QPoint(0, 20), QPoint(31, 17), QPoint(5000, 5000), QPoint(1, 1)}) {
                view.setContentsPos(at.x(), at.y());
                QVERIFY(compare_pictures(seen(view), scrolled(view, reduced)));
            }
        }
    }

    void thinLinesOfAScanStayToBeSeenAtEveryZoom()
    {
        QImage scan(800, 600, QImage::Format_Mono);
        scan.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
        scan.fill(0);
        for (int x = 0; x < scan.width(); ++x)
            scan.setPixel(x, 100, 1); // one pixel high
        ViewFixture fixture(scan.size());
        show_page(fixture.view, scan);

        for (int zoom = NaturalSize + 1; zoom <= Smallest; ++zoom) {
            QVERIFY(fixture.view.setZoomIndex(zoom));
            const int step = 1 << (zoom - NaturalSize);
            // One black row of so many: 127.5, 191.25, 223.1, 239.06.
            const int grey = (255 * (step - 1) * 2 + step) / (2 * step);
            QCOMPARE(seen(fixture.view).pixel(20, 100 / step), qRgb(grey, grey, grey));
        }
    }

    void naturalSizeShowsThePageItself()
    {
        const QImage page = noise_page(page_kinds()[0], QSize(150, 120));
        ViewFixture fixture(page.size());
        show_page(fixture.view, page);
        QVERIFY(fixture.view.setZoomIndex(Smallest));
        (void)seen(fixture.view); // averages are there now

        QVERIFY(fixture.view.setZoomIndex(NaturalSize));

        QVERIFY(compare_pictures(seen(fixture.view).copy(page.rect()), page.convertToFormat(QImage::Format_RGB32)));
    }

    void changedPageIsAveragedAnew()
    {
        const QImage page = noise_page(page_kinds()[10], QSize(400, 300));
        QImage edited = page.copy();
        edited.invertPixels();
        ViewFixture fixture(page.size());
        show_page(fixture.view, page);
        QVERIFY(fixture.view.setZoomIndex(NaturalSize + 2));
        QVERIFY(compare_pictures(seen(fixture.view), scrolled(fixture.view, reduced_plainly(page, 4))));

        show_page(fixture.view, edited);
        QVERIFY(compare_pictures(seen(fixture.view), scrolled(fixture.view, reduced_plainly(edited, 4))));

        show_page(fixture.view, page); // undone
        QVERIFY(compare_pictures(seen(fixture.view), scrolled(fixture.view, reduced_plainly(page, 4))));
    }

    void dragOfASelectionAveragesNothingAgain()
    {
        SecretlyChanged changed;

        changed.fixture.press(QPoint(30, 40));
        for (const QPoint at : {QPoint(120, 90), QPoint(60, 70), QPoint(150, 110)})
            changed.fixture.move(at);
        QCoreApplication::processEvents();

        const QImage screen = seen(changed.fixture.view);
        QCOMPARE(screen.pixel(100, 80), SecretPage::First);
        QCOMPARE(screen.pixel(5, 5), SecretPage::First);
    }

    void scrollByAFewLinesAveragesOnlyThese()
    {
        SecretlyChanged changed;
        ImageView &view = changed.fixture.view;

        view.scrollBy(0, 20);

        const QImage screen = seen(view);
        const int height = view.visibleHeight();
        QCOMPARE(screen.pixel(10, 0), SecretPage::First);
        QCOMPARE(screen.pixel(10, height - 21), SecretPage::First);
        QCOMPARE(screen.pixel(10, height - 20), SecretPage::Second);
        QCOMPARE(screen.pixel(10, height - 1), SecretPage::Second);
    }

    void tabThatDoesNotShowKeepsNothing()
    {
        QTabWidget tabs;
        auto *const view = new ImageView(&tabs);
        tabs.addTab(view, QString());
        tabs.addTab(new QWidget, QString());
        tabs.resize(1000, 800);
        tabs.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tabs));
        SecretPage page(QSize(8000, 6000));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));
        QVERIFY(view->setImage(page.image()));
        view->canvas()->resize(8000, 6000);
        QVERIFY(view->setZoomIndex(NaturalSize + 1));
        tabs.setCurrentIndex(1);
        QCoreApplication::processEvents();
        const std::size_t before = allocated_bytes();

        tabs.setCurrentIndex(0);
        (void)view->viewport()->grab(); // averages are there now
        const std::size_t shown = allocated_bytes();
        tabs.setCurrentIndex(1);
        QCoreApplication::processEvents();

        constexpr std::size_t pagePixels = std::size_t{700} * 500; // less than the tab shows
        if (shown > 0) // a sanitizer's allocator does not count
            QVERIFY(shown > before + 4 * pagePixels);
        QVERIFY(allocated_bytes() < before + pagePixels);
        page.change();
        tabs.setCurrentIndex(0);
        QCOMPARE(seen(*view).pixel(50, 50), SecretPage::Second);
    }
};

QTEST_MAIN(tst_ImageView_reduced)
#include "tst_ImageView_reduced.moc"

#include "colored_documents.h"
#include "ImageDocument.h"
#include "pictures.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_ImageDocument : public QObject
{
    Q_OBJECT

private slots:
    void untitledDocumentHasNoFile();
    void setFileNameKeepsTheDirectory();
    void setModifiedAlwaysSignals();
    void dumpHasSevenLines();

    void addPageAppends();
    void addedPageHasAResolution();
    void setPageReplacesOnePage();
    void nullPageIsRefusedEverywhere();
    void removePageMayLeaveNone();
    void swapPagesExchangesThem();
    void pageIsHandedOutByReference();
    void changesOfPagesModify_data();
    void changesOfPagesModify();

    void cropCutsARectangle();
    void cropFillsWhatLiesOutside();
    void cropToTheNullRectangleKeepsAll();
    void cropToNothingIsRefused_data();
    void cropToNothingIsRefused();
    void cropKeepsFormatAndColours();
};

void tst_ImageDocument::untitledDocumentHasNoFile()
{
    ImageDocument document({}, {});

    document.fileInfo.setFile(u"."_s);
    document.setFileName(u"Untitled"_s);

    QVERIFY(!document.hasFile());
    QCOMPARE(document.fileName(), u"Untitled"_s);
    QCOMPARE(document.filePath(), u"./Untitled"_s);
}

void tst_ImageDocument::setFileNameKeepsTheDirectory()
{
    ImageDocument document({}, {});
    document.fileInfo.setFile(u"/some/where/a.png"_s);

    document.setFileName(u"b.jpg"_s);

    QCOMPARE(document.filePath(), u"/some/where/b.jpg"_s);
}

void tst_ImageDocument::setModifiedAlwaysSignals()
{
    ImageDocument document({}, {});
    const QSignalSpy spy(&document, &ImageDocument::modifiedStateChanged);

    document.setModified(false);
    document.setModified(true);
    document.setModified(true);

    QCOMPARE(spy.size(), 3);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QCOMPARE(spy.at(2).at(0).toBool(), true);
}

void tst_ImageDocument::dumpHasSevenLines()
{
    const auto document = document_of({red, green});
    document->fileInfo.setFile(u"/some/where/a.png"_s);
    document->imgFormat_ = u"PNG"_s;
    document->setModified(true);

    QCOMPARE(document->dump(),
             u"isEmpty: 0\npageCount: 2\nhasFile: 1\nfileName: a.png\n"
             "filePath: /some/where/a.png\nimgFormat: PNG\nisModified: 1"_s);
}

void tst_ImageDocument::addedPageHasAResolution()
{
    QImage page = page_of(red);
    const int usual = page.dotsPerMeterX();
    page.setDotsPerMeterX(-7);
    page.setDotsPerMeterY(11811);
    ImageDocument document({}, {});

    QVERIFY(document.addPage(page));

    QCOMPARE(document.page(1).dotsPerMeterX(), usual);
    QCOMPARE(document.page(1).dotsPerMeterY(), 11811);
}

void tst_ImageDocument::addPageAppends()
{
    ImageDocument document({}, {});

    QVERIFY(document.addPage(page_of(red)));
    QVERIFY(document.addPage(page_of(green)));

    QCOMPARE(colors_of(document), (QList<QRgb>{red, green}));
}

void tst_ImageDocument::setPageReplacesOnePage()
{
    const auto document = document_of({red, red, red});

    QVERIFY(document->setPage(2, page_of(blue)));

    QCOMPARE(colors_of(*document), (QList<QRgb>{red, blue, red}));
}

void tst_ImageDocument::nullPageIsRefusedEverywhere()
{
    const auto document = document_of({red});

    QVERIFY(!document->addPage(QImage()));
    QVERIFY(!document->setPage(1, QImage()));

    QCOMPARE(colors_of(*document), QList<QRgb>{red});
    QVERIFY(!document->isModified());
}

void tst_ImageDocument::removePageMayLeaveNone()
{
    const auto document = document_of({red, green, blue});

    document->removePage(2);
    QCOMPARE(colors_of(*document), (QList<QRgb>{red, blue}));
    document->removePage(1);
    document->removePage(1);

    QVERIFY(document->isEmpty());
}

void tst_ImageDocument::swapPagesExchangesThem()
{
    const auto document = document_of({red, green, blue});
    const uchar *const pixels = document->page(1).constBits();

    document->swapPages(1, 3);

    QCOMPARE(colors_of(*document), (QList<QRgb>{blue, green, red}));
    QCOMPARE(std::as_const(*document).page(3).constBits(), pixels);
}

void tst_ImageDocument::pageIsHandedOutByReference()
{
    const auto document = document_of({red, green});

    document->page(2).fill(QColor::fromRgb(blue));

    QCOMPARE(colors_of(*document), (QList<QRgb>{red, blue}));
}

void tst_ImageDocument::changesOfPagesModify_data()
{
    QTest::addColumn<int>("change");

    QTest::newRow("addPage") << 0;
    QTest::newRow("setPage") << 1;
    QTest::newRow("removePage") << 2;
    QTest::newRow("swapPages") << 3;
    QTest::newRow("crop") << 4;
}

void tst_ImageDocument::changesOfPagesModify()
{
    QFETCH(const int, change);
    const auto document = document_of({red, green});
    const QSignalSpy spy(document.get(), &ImageDocument::modifiedStateChanged);

    switch (change) {
    case 0:
        QVERIFY(document->addPage(page_of(blue)));
        break;
    case 1:
        QVERIFY(document->setPage(1, page_of(blue)));
        break;
    case 2:
        document->removePage(1);
        break;
    case 3:
        document->swapPages(1, 2);
        break;
    default:
        QVERIFY(document->crop(1, {0, 0, 1, 1}));
    }

    QVERIFY(document->isModified());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
}

void tst_ImageDocument::cropCutsARectangle()
{
    ImageDocument document({}, {});
    QVERIFY(document.addPage(patterned_page({20, 10})));

    QVERIFY(document.crop(1, {3, 4, 5, 2}));

    QCOMPARE(document.page(1).size(), QSize(5, 2));
    QCOMPARE(document.page(1).pixel(0, 0), position_color({3, 4}));
    QCOMPARE(document.page(1).pixel(4, 1), position_color({7, 5}));
}

void tst_ImageDocument::cropFillsWhatLiesOutside()
{
    const auto document = document_of({red});

    QVERIFY(document->crop(1, {-1, -1, 6, 4}));

    QCOMPARE(document->page(1).size(), QSize(6, 4));
    QCOMPARE(document->page(1).pixel(0, 0), 0xff000000); // RGB32 shows its zeros as black
    QCOMPARE(document->page(1).pixel(1, 1), red);
    QCOMPARE(document->page(1).pixel(3, 2), red);
    QCOMPARE(document->page(1).pixel(4, 3), 0xff000000);
}

void tst_ImageDocument::cropToTheNullRectangleKeepsAll()
{
    ImageDocument document({}, {});
    QVERIFY(document.addPage(patterned_page({20, 10})));

    QVERIFY(document.crop(1, QRect()));

    QVERIFY(compare_pictures(document.page(1), patterned_page({20, 10})));
}

void tst_ImageDocument::cropToNothingIsRefused_data()
{
    QTest::addColumn<QRect>("rubber");

    QTest::newRow("no width") << QRect(1, 1, 0, 2);
    QTest::newRow("no height") << QRect(1, 1, 2, 0);
    QTest::newRow("drawn to the left") << QRect(QPoint(10, 1), QPoint(4, 5));
    QTest::newRow("drawn upwards") << QRect(QPoint(1, 9), QPoint(5, 2));
}

void tst_ImageDocument::cropToNothingIsRefused()
{
    QFETCH(const QRect, rubber);
    ImageDocument document({}, {});
    QVERIFY(document.addPage(patterned_page({20, 10})));
    document.setModified(false);

    QVERIFY(!document.crop(1, rubber));

    QVERIFY(compare_pictures(document.page(1), patterned_page({20, 10})));
    QVERIFY(!document.isModified());
}

void tst_ImageDocument::cropKeepsFormatAndColours()
{
    for (const int depth : {1, 8}) {
        const QImage page = patterned_page({40, 10}, depth);
        ImageDocument document({}, {});
        QVERIFY(document.addPage(page));

        QVERIFY(document.crop(1, {3, 2, 30, 5}));

        QCOMPARE(document.page(1).format(), page.format());
        QCOMPARE(document.page(1).colorTable(), page.colorTable());
        QCOMPARE(document.page(1).pixelIndex(0, 0), page.pixelIndex(3, 2));
        QCOMPARE(document.page(1).pixelIndex(29, 4), page.pixelIndex(32, 6));
    }
}

QTEST_GUILESS_MAIN(tst_ImageDocument)
#include "tst_ImageDocument.moc"

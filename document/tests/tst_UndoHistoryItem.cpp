#include "DiagnosticLines.h"
#include "image_files.h"
#include "pictures.h"
#include "process_limits.h"
#include "UndoHistoryItem.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_UndoHistoryItem : public QObject
{
    Q_OBJECT

private slots:
    void constructionNamesTheFileAndWritesNothing();
    void saveAndLoadCarryPageSizeAndZoom();
    void pageComesBackInItsFormat_data();
    void pageComesBackInItsFormat();
    void sizeIsUnknownUntilSaved();
    void fullDiskIsAFailedSave();
    void fileOfAnotherIsNeitherWrittenNorRemoved();
    void missingFileIsAFailedLoad();
    void missingOutputsAreRefused();
    void destructionDeletesTheFile();
    void destructionTellsOfAFileThatIsNotThere();
    void abandonedFileStaysWithoutAWord();

private:
    [[nodiscard]] QString base() const { return m_directory.filePath(u"snapshot"_s); }
    [[nodiscard]] QString path() const { return base() + ".bmp"_L1; }

    QTemporaryDir m_directory;
};

void tst_UndoHistoryItem::constructionNamesTheFileAndWritesNothing()
{
    const DiagnosticLines diagnostics;

    UndoHistoryItem item(u"turn"_s, base());
    QCOMPARE(item.name(), u"turn"_s);
    QCOMPARE(item.fileName(), path());
    QVERIFY(!QFile::exists(path()));
    QCOMPARE(diagnostics.lines(), QStringList{u"UndoHistoryItem"_s});
    item.abandon();
}

void tst_UndoHistoryItem::saveAndLoadCarryPageSizeAndZoom()
{
    UndoHistoryItem item(u"turn"_s, base());
    QImage image;
    QSize size;
    double zoom = 0.0;
    const DiagnosticLines diagnostics;

    QVERIFY(item.save(patterned_page({9, 5}, 8), QSize(18, 10), 0.125));
    QVERIFY(item.load(&image, &size, &zoom));

    QVERIFY(compare_pictures(image, patterned_page({9, 5}, 8)));
    QCOMPARE(size, QSize(18, 10));
    QCOMPARE(zoom, 0.125);
    QCOMPARE(diagnostics.lines(),
             (QStringList{"UndoHistoryItem::save n="_L1 + path() + ", z=0.125, w=18, h=10"_L1,
                          "UndoHistoryItem::load n="_L1 + path() + ", z=0.125, w=18, h=10"_L1}));
}

void tst_UndoHistoryItem::pageComesBackInItsFormat_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<int>("alpha");

    QTest::newRow("for alpha, transparent") << QImage::Format_ARGB32 << 40;
    QTest::newRow("for alpha, opaque") << QImage::Format_ARGB32 << 255;
    QTest::newRow("without alpha") << QImage::Format_RGB32 << 255;
}

void tst_UndoHistoryItem::pageComesBackInItsFormat()
{
    QFETCH(const QImage::Format, format);
    QFETCH(const int, alpha);
    UndoHistoryItem item(u"turn"_s, base());
    QImage image;
    QSize size;
    double zoom = 0.0;
    QImage page(3, 2, format);
    page.fill(QColor(10, 20, 30, alpha));

    QVERIFY(item.save(page, page.size(), 1.0));
    QVERIFY(item.load(&image, &size, &zoom));

    QCOMPARE(image, page);
    QCOMPARE(image.format(), format);
    QCOMPARE(image.pixel(2, 1), qRgba(10, 20, 30, alpha));
}

void tst_UndoHistoryItem::sizeIsUnknownUntilSaved()
{
    QVERIFY(patterned_page({9, 5}).save(path(), "BMP"));
    const UndoHistoryItem item(u"turn"_s, base());
    QImage image;
    QSize size;
    double zoom = 7.0;

    QVERIFY(item.load(&image, &size, &zoom));

    QCOMPARE(size, QSize(-1, -1));
}

void tst_UndoHistoryItem::fullDiskIsAFailedSave()
{
    UndoHistoryItem item(u"turn"_s, base());
    const DiagnosticLines diagnostics;
    const FileSizeLimit limit(10);

    // So small that it would wait in a buffer.
    QVERIFY(!item.save(patterned_page({2, 2}), QSize(2, 2), 1.0));

    QCOMPARE(diagnostics.lines(), QStringList{"UndoHistoryItem::save - error saving image "_L1 + path() + u'!'});
}

void tst_UndoHistoryItem::fileOfAnotherIsNeitherWrittenNorRemoved()
{
    write_file(path(), "precious");
    {
        UndoHistoryItem item(u"turn"_s, base());
        QVERIFY(!item.isNameTaken());

        QVERIFY(!item.save(patterned_page({2, 2}), QSize(2, 2), 1.0));

        QVERIFY(item.isNameTaken());
    }

    QCOMPARE(file_bytes(path()), "precious");
    QVERIFY(QFile::remove(path()));
}

void tst_UndoHistoryItem::missingFileIsAFailedLoad()
{
    UndoHistoryItem item(u"turn"_s, base());
    QImage image = patterned_page({2, 2});
    QSize size(5, 6);
    double zoom = 7.0;
    const DiagnosticLines diagnostics;

    QVERIFY(!item.load(&image, &size, &zoom));

    QVERIFY(compare_pictures(image, patterned_page({2, 2})));
    QCOMPARE(size, QSize(5, 6));
    QCOMPARE(zoom, 7.0);
    QCOMPARE(diagnostics.lines(), QStringList{"UndoHistoryItem::load - error loading image "_L1 + path() + u'!'});
    item.abandon();
}

void tst_UndoHistoryItem::missingOutputsAreRefused()
{
    UndoHistoryItem item(u"turn"_s, base());
    QVERIFY(item.save(patterned_page({2, 2}), QSize(2, 2), 1.0));
    QImage image;
    QSize size;
    double zoom = 0.0;
    const DiagnosticLines diagnostics;

    QVERIFY(!item.load(nullptr, &size, &zoom));
    QVERIFY(!item.load(&image, nullptr, &zoom));
    QVERIFY(!item.load(&image, &size, nullptr));

    QCOMPARE(diagnostics.lines(), QStringList(3, u"UndoHistoryItem::load - bad parameter!!!"_s));
    QVERIFY(image.isNull());
}

void tst_UndoHistoryItem::destructionDeletesTheFile()
{
    auto item = std::make_unique<UndoHistoryItem>(u"turn"_s, base());
    QVERIFY(item->save(patterned_page({2, 2}), QSize(2, 2), 1.0));
    QVERIFY(QFile::exists(path()));
    const DiagnosticLines diagnostics;

    item.reset();

    QVERIFY(!QFile::exists(path()));
    QCOMPARE(diagnostics.lines(), QStringList{u"~UndoHistoryItem"_s});
}

void tst_UndoHistoryItem::destructionTellsOfAFileThatIsNotThere()
{
    auto item = std::make_unique<UndoHistoryItem>(u"turn"_s, base());
    const DiagnosticLines diagnostics;

    item.reset();

    QCOMPARE(diagnostics.lines(),
             (QStringList{u"~UndoHistoryItem"_s, "~UndoHistoryItem - error removing image "_L1 + path() + u'!'}));
}

void tst_UndoHistoryItem::abandonedFileStaysWithoutAWord()
{
    auto item = std::make_unique<UndoHistoryItem>(u"turn"_s, base());
    QVERIFY(item->save(patterned_page({2, 2}), QSize(2, 2), 1.0));
    const DiagnosticLines diagnostics;

    item->abandon();
    item.reset();

    QVERIFY(QFile::remove(path()));
    QCOMPARE(diagnostics.lines(), QStringList());
}

QTEST_GUILESS_MAIN(tst_UndoHistoryItem)
#include "tst_UndoHistoryItem.moc"

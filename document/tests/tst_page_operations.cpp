#include "ImageDocument.h"
#include "page_depth.h"
#include "page_operations.h"
#include "random_pages.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PageSize(13, 6);
constexpr int Percent = 30;

/// An operation as the description of the commands tells it.
struct Described
{
    PageChange change;
    const char *title;
    const char *label; ///< null for one without a percentage
    bool (ImageDocument::*plain)(uint); ///< one of the two operations is null
    bool (ImageDocument::*withPercent)(uint, int);
    ImageTransform preview;
};

const std::array<Described, 11> described{{
    {PageChange::Depth1Bit, "Image Depth 1 bit", nullptr, &ImageDocument::depth_1_bit, nullptr, trans_depth_1_bit},
    {PageChange::Depth8Bit, "Image Depth 8 bit", nullptr, &ImageDocument::depth_8_bit, nullptr, trans_depth_8_bit},
    {PageChange::Depth32Bit, "Image Depth 32 bit", nullptr, &ImageDocument::depth_32_bit, nullptr, trans_depth_32_bit},
    {PageChange::Invert, "Invert", nullptr, &ImageDocument::invert, nullptr, trans_invert},
    {PageChange::Brightness, "Brightness", "Set Brightness", nullptr, &ImageDocument::brightness, trans_brightness},
    {PageChange::Contrast, "Contrast", "Set Contrast", nullptr, &ImageDocument::contrast, trans_contrast},
    {PageChange::Rotate90, "Rotate 90 degrees CCW", nullptr, &ImageDocument::rotate_90, nullptr, trans_rotate_90},
    {PageChange::Rotate180, "Rotate 180 degrees", nullptr, &ImageDocument::rotate_180, nullptr, trans_rotate_180},
    {PageChange::Rotate270, "Rotate 90 degrees CW", nullptr, &ImageDocument::rotate_270, nullptr, trans_rotate_270},
    {PageChange::FlipVertically, "Flip Vertically", nullptr, &ImageDocument::flip_vertically, nullptr,
     trans_flip_vertically},
    {PageChange::FlipHorizontally, "Flip Horizontally", nullptr, &ImageDocument::flip_horizontally, nullptr,
     trans_flip_horizontally},
}};

void add_operations()
{
    QTest::addColumn<Described>("operation");
    for (const Described &operation : described)
        QTest::newRow(operation.title) << operation;
}

} // namespace

Q_DECLARE_METATYPE(Described)

/// The table of the operations that are shown before they are done.
class tst_page_operations : public QObject
{
    Q_OBJECT

private slots:
    void aDialogSaysWhatItIsAboutAndWhatCanBeChosen_data() { add_operations(); }
    void aDialogSaysWhatItIsAboutAndWhatCanBeChosen()
    {
        QFETCH(const Described, operation);
        const PageOperation &row = page_operation(operation.change);

        QCOMPARE(row.title, operation.title);
        QCOMPARE(row.range.has_value(), operation.label != nullptr);
        if (!row.range)
            return;
        QCOMPARE(row.range->label, operation.label);
        QCOMPARE(row.range->min, -100);
        QCOMPARE(row.range->max, 100);
        QCOMPARE(row.range->init, 0);
        QCOMPARE(row.range->step, 1);
    }

    void aDocumentDoesByNameWhatTheRowSays_data() { add_operations(); }
    void aDocumentDoesByNameWhatTheRowSays()
    {
        QFETCH(const Described, operation);
        const PageOperation &row = page_operation(operation.change);
        for (const QImage::Format format : page_formats()) {
            QImage page = random_page(random, PageSize, format);
            ImageDocument document({}, {});
            QVERIFY(document.addPage(page));
            document.setModified(false);

            QVERIFY(operation.plain ? (document.*operation.plain)(1) : (document.*operation.withPercent)(1, Percent));

            QVERIFY(document.isModified());
            QVERIFY(row.change(page, Percent));
            QCOMPARE(document.page(1), page);
            QCOMPARE(document.page(1).colorTable(), page.colorTable());
        }
    }

    void aTransformShowsByNameWhatTheRowSays_data() { add_operations(); }
    void aTransformShowsByNameWhatTheRowSays()
    {
        QFETCH(const Described, operation);
        for (const QImage::Format format : page_formats()) {
            const QImage page = random_page(random, PageSize, format);
            QImage byName;
            QImage byRow;

            QVERIFY(operation.preview(page, byName, &Percent));
            QVERIFY(page_operation(operation.change).preview(page, byRow, &Percent));

            QCOMPARE(byName, byRow);
            QCOMPARE(byName.colorTable(), byRow.colorTable());
        }
    }

    // Intended: a 1-bit page that is turned becomes black and white, its preview keeps its colours.
    void pageAndPreviewAreTheSameButForTurnsOfOneBit_data() { add_operations(); }
    void pageAndPreviewAreTheSameButForTurnsOfOneBit()
    {
        QFETCH(const Described, operation);
        const PageOperation &row = page_operation(operation.change);
        const bool isQuarterTurn =
            operation.change == PageChange::Rotate90 || operation.change == PageChange::Rotate270;
        for (const QImage::Format format : page_formats()) {
            QImage page = random_page(random, PageSize, format);
            QImage preview;
            QVERIFY(row.preview(page, preview, &Percent));

            QVERIFY(row.change(page, Percent));

            QCOMPARE(page, isQuarterTurn && preview.depth() == 1 ? toMono(preview) : preview);
        }
    }

private:
    QRandomGenerator random{11};
};

QTEST_GUILESS_MAIN(tst_page_operations)
#include "tst_page_operations.moc"

#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageItem.h"
#include "pictures.h"
#include "Q3Canvas.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A document of pages 40 by 30, 50 by 30, 60 by 30 and so on.
std::unique_ptr<ImageDocument> document_of(int pageCount)
{
    auto document = std::make_unique<ImageDocument>(QString(), QString());
    for (int i = 0; i < pageCount; ++i)
        if (!document->addPage(patterned_page(QSize(40 + 10 * i, 30))))
            qFatal("a page was refused");
    return document;
}

void announce_pages(int pageCount)
{
    for (int i = 0; i < pageCount; ++i)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));
}

void show(ImageDocumentView &view)
{
    view.setFrameShape(QFrame::NoFrame);
    view.resize(300, 200);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
}

void send_mouse(const ImageDocumentView &view, QEvent::Type type, QPoint position, Qt::MouseButton button)
{
    QMouseEvent event(type, position, view.viewport()->mapToGlobal(position), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

} // namespace

class tst_ImageDocumentView : public QObject
{
    Q_OBJECT

private slots:
    void aDocumentWithoutPagesLeavesTheViewEmpty()
    {
        const auto document = document_of(0);
        ImageDocumentView view(nullptr);

        QVERIFY(view.setDocument(document.get()));

        QVERIFY(!view.document());
        QVERIFY(!view.cropSelection());
        QVERIFY(!view.imageItem()->isVisible());
    }

    void aMultipageDocumentOpensWithItsLastPageOnScreen()
    {
        announce_pages(3);
        const auto document = document_of(3);
        ImageDocumentView view(nullptr);

        QVERIFY(view.setDocument(document.get()));

        QCOMPARE(view.document(), document.get());
        QCOMPARE(view.currentPage(), 1U);
        QCOMPARE(view.imageItem()->pageImage().size(), QSize(60, 30));
        QCOMPARE(view.canvas()->size(), QSize(60, 30));
    }

    void aRefreshBringsTheNumberedPageOnScreen()
    {
        announce_pages(4);
        const auto document = document_of(3);
        ImageDocumentView view(nullptr);
        QVERIFY(view.setDocument(document.get()));

        view.refreshPage(1);

        QCOMPARE(view.imageItem()->pageImage().size(), QSize(40, 30));
        QCOMPARE(view.canvas()->size(), QSize(40, 30));
    }

    void theModifiedSignalOfTheDocumentIsPassedThrough()
    {
        announce_pages(1);
        const auto document = document_of(1);
        ImageDocumentView view(nullptr);
        QVERIFY(view.setDocument(document.get()));
        QSignalSpy modified(&view, &ImageDocumentView::modifiedStateChanged);

        document->setModified(false);

        QCOMPARE(modified.count(), 1);
        QCOMPARE(modified.at(0).at(0).toBool(), false);
    }

    void croppingNeedsASelection()
    {
        announce_pages(1);
        const auto document = document_of(1);
        ImageDocumentView view(nullptr);
        QVERIFY(view.setDocument(document.get()));

        QVERIFY(!view.cropSelection());
        QCOMPARE(document->page(1).size(), QSize(40, 30));
    }

    void croppingCutsTheCurrentPageToTheSelection()
    {
        announce_pages(1);
        const auto document = document_of(1);
        ImageDocumentView view(nullptr);
        QVERIFY(view.setDocument(document.get()));
        show(view);
        const QImage page = document->page(1);
        send_mouse(view, QEvent::MouseButtonPress, QPoint(5, 6), Qt::LeftButton);
        send_mouse(view, QEvent::MouseMove, QPoint(20, 17), Qt::LeftButton);
        send_mouse(view, QEvent::MouseButtonRelease, QPoint(20, 17), Qt::LeftButton);

        QVERIFY(view.cropSelection());

        QVERIFY(compare_pictures(document->page(1), page.copy(5, 6, 16, 12)));
    }

    void scrollingMarksTheVisibleRectangleOnly()
    {
        announce_pages(1);
        ImageDocument document{QString(), QString()};
        QVERIFY(document.addPage(patterned_page(QSize(3000, 2000))));
        ImageDocumentView view(nullptr);
        QVERIFY(view.setDocument(&document));
        show(view);

        // A second view of the canvas, set to the far end at first, is asked to repaint whatever is marked there.
        class FarView : public Q3CanvasView
        {
        public:
            using Q3CanvasView::Q3CanvasView;
            int paints = 0;

        protected:
            bool viewportEvent(QEvent *event) override
            {
                paints += event->type() == QEvent::Paint ? 1 : 0;
                return Q3CanvasView::viewportEvent(event);
            }
        };
        FarView farView(nullptr);
        farView.setCanvas(view.canvas());
        farView.resize(300, 200);
        farView.show();
        QVERIFY(QTest::qWaitForWindowExposed(&farView));
        QCoreApplication::processEvents();
        farView.setContentsPos(2500, 1700);
        view.canvas()->update(); // takes the marks away that the new canvas size has left
        QCoreApplication::processEvents();
        farView.paints = 0;

        view.horizontalScrollBar()->setValue(100);
        QCoreApplication::processEvents();

        QCOMPARE(view.contentsX(), 100);
        QCOMPARE(farView.paints, 0);

        farView.setContentsPos(0, 0); // where the first view is
        QTRY_VERIFY(farView.paints > 0);
        QCoreApplication::processEvents();
        farView.paints = 0;
        view.horizontalScrollBar()->setValue(120);
        QTRY_COMPARE(farView.paints, 1);
        farView.setCanvas(nullptr);
    }

    void theViewLeavesTheDocumentAlone()
    {
        announce_pages(1);
        const auto document = document_of(1);
        auto view = std::make_unique<ImageDocumentView>(nullptr);
        QVERIFY(view->setDocument(document.get()));

        view.reset();

        QCOMPARE(document->pageCount(), 1U);
        document->setModified(true); // reaches nobody
    }
};

QTEST_MAIN(tst_ImageDocumentView)
#include "tst_ImageDocumentView.moc"

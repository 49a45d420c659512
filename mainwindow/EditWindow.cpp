#include "EditWindow.h"

#include "BusyScope.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageItem.h"
#include "Q3Canvas.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>

ImageDocumentView *EditWindow::view() const
{
    return qobject_cast<ImageDocumentView *>(parts.tabs->currentWidget());
}

void EditWindow::setFrozen(bool frozen)
{
    parts.window->setEnabled(!frozen);
}

void EditWindow::setWaiting(bool waiting)
{
    parts.window->setCursor(waiting ? Qt::WaitCursor : Qt::ArrowCursor);
}

void EditWindow::showStatus(const QString &text)
{
    parts.window->statusBar()->showMessage(text, 0);
}

void EditWindow::runBusy(const std::function<void()> &work)
{
    const BusyScope busy(parts.window, view(), parts.viewStatusEnabled);
    work();
}

void EditWindow::processEvents()
{
    QCoreApplication::processEvents();
}

QObject *EditWindow::currentTab() const
{
    ImageDocumentView *const current = view();
    return current && current->document() ? current : nullptr;
}

EditedPage EditWindow::page() const
{
    const ImageDocumentView *const current = view();
    const ImageDocument *const document = current->document();
    return {.image = document->page(current->currentPage()),
            .shownSize = current->imageItem()->pageImage().size(),
            .zoom = current->currentFactor()};
}

bool EditWindow::setPage(const QImage &image)
{
    return view()->document()->setPage(view()->currentPage(), image);
}

void EditWindow::refreshPage()
{
    view()->refreshPage(view()->currentPage());
}

void EditWindow::resizeCanvas(QSize size)
{
    view()->canvas()->resize(size.width(), size.height());
}

bool EditWindow::confirmWithoutUndo()
{
    const QString title = QCoreApplication::translate("ImageManager", "Warning");
    const QString question =
        QCoreApplication::translate("ImageManager", "This operation cannot be undone or redone. Continue?");
    return QMessageBox::warning(parts.window, title, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
        == QMessageBox::Yes;
}

void EditWindow::tellOfFailedSnapshot()
{
    QMessageBox::information(parts.window, QCoreApplication::translate("ImageManager", "Warning"),
                             QCoreApplication::translate("ImageManager", "Error saving Undo/Redo information"),
                             QMessageBox::Ok);
}

void EditWindow::closeLater()
{
    QMetaObject::invokeMethod(parts.window, &QWidget::close, Qt::QueuedConnection);
}

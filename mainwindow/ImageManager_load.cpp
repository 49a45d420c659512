#include "argument_message.h"
#include "file_dialogs.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "tab_text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QTabWidget>

#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Counts every load of the process, failed or not; the names of unnamed documents come from it.
int untitledCounter = 0;

QString next_untitled_name()
{
    ++untitledCounter;
    return untitledCounter > 1 ? u"Untitled%1"_s.arg(untitledCounter) : u"Untitled"_s;
}

} // namespace

void ImageManager::processArgs(const QStringList &args)
{
    qDebug("ImageManager::processArgs(): { args=<%s>", args.join(' '_L1).toLocal8Bit().constData());

    // Intended: with nothing to show the process ends here, also one that has shown documents until now.
    if (args.size() < 2)
        std::exit(0);

    const bool wasShown = isVisible();
    bool anyOpened = false;
    for (qsizetype i = 1; i < args.size(); ++i) {
        QString path = args.at(i);
        const bool temporary = path == "-t"_L1 && i + 1 < args.size();
        if (temporary)
            path = args.at(++i);
        anyOpened = load_file(path, QString(), temporary) || anyOpened;
        if (temporary)
            QFile::remove(path);
        if (wasShown && !isVisible())
            std::exit(0); // closed while the file was being opened, perhaps before there was a loop to leave
    }
    if (!anyOpened)
        std::exit(0);
}

void ImageManager::processMessage(const QString &msg)
{
    if (!isEnabled()) { // an edit works on the tab that is current
        heldMessages.append(msg);
        return;
    }
    qDebug("msg=<%s> len=%u", msg.toLocal8Bit().constData(), static_cast<uint>(msg.length()));
    processArgs(splitArgs(msg));
    raise();
    activateWindow();
}

bool ImageManager::load_file(const QString &path, const QString &format, bool temporary)
{
    const QString name = next_untitled_name();
    auto document = std::make_unique<ImageDocument>(path, format);
    if (document->isEmpty())
        return reportFailedLoad(document.get(), name);

    if (temporary) {
        // The file that the pages came from is about to disappear.
        document->fileInfo.setFile(u"."_s);
        document->setFileName(name);
        document->imgFormat_ = u"BMP"_s;
    }
    return addDocumentTab(document.release());
}

// Tells the user why a file has no pages. The answer is whether a byte copy of it was saved instead.
bool ImageManager::reportFailedLoad(ImageDocument *document, const QString &name)
{
    if (document->loadStatus != ImageDocument::LoadTooBig) {
        QMessageBox::warning(this, tr("Load failed"), tr("Error loading file"), QMessageBox::Ok);
        return false;
    }
    if (!askToSaveInstead())
        return false;

    QString format = u"ppm"_s;
    QString path = QDir(u"."_s).filePath(name);
    qDebug("save_file_name: %s", path.toLocal8Bit().constData());
    if (!save_file_dialog(path, format, this, "ppm")) {
        qWarning("ImageManager::file_save_as - dialog canceled or failed");
        return false;
    }
    qDebug("save_file_name %s", path.toLocal8Bit().constData());
    return save_file(document, path, format);
}

bool ImageManager::askToSaveInstead()
{
    return QMessageBox::warning(this, windowTitle(),
                                tr("Could not load image\nNot enough memory to load bitmap image\n"
                                   "Do you want to save it?"),
                                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No)
        == QMessageBox::Yes;
}

bool ImageManager::addDocumentTab(ImageDocument *doc)
{
    auto *const view = new ImageDocumentView(tabWidget);
    view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    tabWidget->setCurrentIndex(tabWidget->insertTab(-1, view, tab_text(doc->fileName())));

    if (!view->setDocument(doc)) {
        if (askToSaveInstead())
            file_save_as();
        closeCurrentTab();
        return false;
    }

    // The user may close the tab, or the window, whenever events get through.
    const QPointer<ImageDocumentView> open(view);
    QCoreApplication::processEvents();
    if (!open)
        return true;
    view->setCurrentPage(1);
    view->setVisible(true);
    updateActions();
    if (!open)
        return true;
    connect(view, &ImageView::statusChanged, this, &ImageManager::onStatusChanged);
    connect(view, &ImageView::selectionChanged, this, &ImageManager::updateImageCropControls);
    QCoreApplication::processEvents();
    if (!open)
        return true;
    if (tabWidget->count() == 1)
        updateDocumentActions();
    updateTabTitle(view, !doc->hasFile());
    connect(view, &ImageDocumentView::modifiedStateChanged, this, &ImageManager::documentModifiedStateChanged);
    tabChanged(view);
    return true;
}

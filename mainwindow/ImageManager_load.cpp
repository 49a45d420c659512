#include "argument_message.h"
#include "CommandTab.h"
#include "file_dialogs.h"
#include "FrontTabScope.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "StillPages.h"
#include "tab_text.h"
#include "window_settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
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

/// Whether a word that opens nothing leaves a window with tabs alone, and a path may hold a ":".
bool keeps_open()
{
    return read_window_setting(WindowSetting::KeepOpen, false).toBool();
}

} // namespace

void ImageManager::processArgs(const QStringList &args)
{
    // Intended: with nothing to show the process ends here, also one that has shown documents until now.
    if (!openFiles(args) && !closed)
        endForWantOfFiles();
}

void ImageManager::processArgs(const QStringList &args, const QStringList &earlyMessages)
{
    bool anyOpened = openFiles(args);
    for (const QString &message : earlyMessages) {
        const bool opened = openMessage(message);
        bringUp();
        // Intended: one that opens nothing ends a program that shows something, as a later one does.
        if (!opened && anyOpened && !closed)
            endForWantOfFiles();
        anyOpened = opened || anyOpened;
    }
    if (!anyOpened && !closed)
        endForWantOfFiles();
}

void ImageManager::endForWantOfFiles()
{
    if (tabWidget->count() == 0 || !keeps_open())
        std::exit(0);
}

bool ImageManager::isOpened(LoadOutcome outcome)
{
    return outcome == LoadOutcome::Done || outcome == LoadOutcome::CopiedOntoItself;
}

/// Opens the files of an argument list one after the other. Once the window is closed the process is about to end:
/// those that are left stay where they are, temporary ones too. False if none opened.
bool ImageManager::openFiles(const QStringList &words)
{
    qDebug("ImageManager::processArgs(): { args=<%s>", words.join(' '_L1).toLocal8Bit().constData());

    const QStringList args = keeps_open() ? join_paths_with_colons(words) : words;
    bool anyOpened = false;
    for (qsizetype i = 1; i < args.size() && !closed; ++i) {
        QString path = args.at(i);
        const bool temporary = path == "-t"_L1 && i + 1 < args.size();
        if (temporary)
            path = args.at(++i);
        const LoadOutcome outcome = openFile(path, QString(), temporary);
        anyOpened = isOpened(outcome) || anyOpened;
        // Where there is no other copy of what is in it, or nobody can have seen it, the file stays.
        if (temporary && !closed && outcome != LoadOutcome::CopyFailed && outcome != LoadOutcome::CopiedOntoItself)
            QFile::remove(path);
    }
    return anyOpened;
}

void ImageManager::processMessage(const QString &msg)
{
    if (bracket->holdsMessage(msg))
        return;
    if (!openMessage(msg) && !closed)
        endForWantOfFiles();
    bringUp();
}

bool ImageManager::openMessage(const QString &msg)
{
    qDebug("msg=<%s> len=%u", msg.toLocal8Bit().constData(), static_cast<uint>(msg.length()));
    return openFiles(splitArgs(msg));
}

void ImageManager::bringUp()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

bool ImageManager::load_file(const QString &path, const QString &format, bool temporary)
{
    return isOpened(openFile(path, format, temporary));
}

ImageManager::LoadOutcome ImageManager::openFile(const QString &path, const QString &format, bool temporary)
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
    return addDocumentTab(document.release()) ? LoadOutcome::Done : LoadOutcome::Failed;
}

// Tells the user why a file has no pages, and saves a byte copy of it instead if that is wanted.
ImageManager::LoadOutcome ImageManager::reportFailedLoad(ImageDocument *document, const QString &name)
{
    if (document->loadStatus != ImageDocument::LoadTooBig) {
        QMessageBox::warning(this, tr("Load failed"), tr("Error loading file"), QMessageBox::Ok);
        return LoadOutcome::Failed;
    }
    if (!askToSaveInstead() || closed)
        return LoadOutcome::Failed;

    QString format = u"ppm"_s;
    QString path = QDir(u"."_s).filePath(name);
    qDebug("save_file_name: %s", path.toLocal8Bit().constData());
    if (!save_file_dialog(path, format, this, "ppm")) {
        qWarning("ImageManager::file_save_as - dialog canceled or failed");
        return LoadOutcome::Failed;
    }
    qDebug("save_file_name %s", path.toLocal8Bit().constData());
    if (!save_file(document, path, format))
        return LoadOutcome::CopyFailed;
    return QFileInfo(path) == document->fileInfo ? LoadOutcome::CopiedOntoItself : LoadOutcome::Done;
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
    const int tabIndex = tabWidget->insertTab(-1, view, tab_text(doc->fileName()));
    {
        const StillPages still(tabWidget);
        tabWidget->setCurrentIndex(tabIndex);
    }

    if (!view->setDocument(doc)) {
        offerToSaveRefused(view);
        return false;
    }

    // The user may close the tab, or the window, whenever events get through.
    const CommandTab tab(view);
    QCoreApplication::processEvents();
    if (!tab)
        return true;
    view->setCurrentPage(1);
    view->setVisible(true);
    updateActions();
    if (!tab)
        return true;
    connect(view, &ImageView::statusChanged, this, &ImageManager::onStatusChanged);
    connect(view, &ImageView::selectionChanged, this, &ImageManager::updateImageCropControls);
    QCoreApplication::processEvents();
    if (!tab)
        return true;
    if (tabWidget->count() == 1)
        updateDocumentActions();
    updateTabTitle(view, !doc->hasFile());
    connect(view, &ImageDocumentView::modifiedStateChanged, this, &ImageManager::documentModifiedStateChanged);
    tabChanged(view);
    return true;
}

/// Offers to save the pages of a tab that cannot show them, and closes it.
void ImageManager::offerToSaveRefused(ImageDocumentView *view)
{
    const CommandTab tab(view);
    bool isWanted = false;
    {
        const FrontTabScope front(tabWidget);
        isWanted = askToSaveInstead();
    }
    if (isWanted && tab)
        file_save_as();
    closeTab(tab.view());
}

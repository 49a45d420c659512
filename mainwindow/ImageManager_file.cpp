#include "BusyScope.h"
#include "file_dialogs.h"
#include "FrontTabScope.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"

#include <QMessageBox>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

const QString untitledBase = u"Untitled"_s;
const QString tiffWord = u"TIFF"_s;
const QString multipageTiffWord = u"MTIFF"_s;

/// Gives the documents that have no file of their own a name each: @p path with 1, 2, 3 ... before its
/// last dot.
void name_untitled_documents(const QList<ImageDocument *> &documents, const QString &path, const QString &format)
{
    const qsizetype dot = path.lastIndexOf('.'_L1);
    const qsizetype position = dot < 0 ? path.size() : dot;
    int number = 0;
    for (ImageDocument *const document : documents) {
        if (document->hasFile())
            continue;
        ++number;
        document->fileInfo.setFile(QString(path).insert(position, QString::number(number)));
        document->imgFormat_ = format;
    }
}

} // namespace

void ImageManager::file_new()
{
    // Intended: there is no empty image to begin with; pages come from files.
}

void ImageManager::file_open()
{
    QString path;
    QString format;
    if (!open_file_dialog(path, format, this))
        return;
    if (!load_file(path, format, false))
        QMessageBox::warning(this, tr("Open failed"), tr("Error opening file"), QMessageBox::Ok);
}

bool ImageManager::save_file(ImageDocument *doc, const QString &filePath, const QString &format)
{
    bool saved = false;
    {
        const BusyScope busy(this, currentView(), &viewStatusEnabled);
        saved = doc->save(filePath, format);
    }
    if (!saved)
        QMessageBox::warning(this, tr("Save failed"), tr("Error saving image: %1").arg(doc->lastError),
                             QMessageBox::Ok);
    return saved;
}

bool ImageManager::file_save()
{
    ImageDocument *const document = currentDocument();
    if (!document || document->isEmpty()) {
        qWarning("ImageManager::file_save - nothing to save!");
        return true;
    }
    if (!document->hasFile())
        return file_save_as();
    return save_file(document, document->filePath(), document->imgFormat());
}

bool ImageManager::file_save_as()
{
    ImageDocument *const document = currentDocument();
    if (!document || document->isEmpty()) {
        qWarning("ImageManager::file_save - nothing to save!");
        return true;
    }
    QString path = document->filePath();
    QString format = document->imgFormat();
    if (!save_file_dialog(path, format, this, nullptr)) {
        qWarning("ImageManager::file_save_as - dialog canceled or failed");
        return false;
    }
    return save_file(document, path, format);
}

void ImageManager::file_save_all()
{
    QString path = untitledBase;
    QString format;
    bool useAsBase = true;
    {
        const FrontTabScope front(tabWidget);
        if (!save_all_file_dialog(path, format, useAsBase, this))
            return;
    }

    if (format == multipageTiffWord) {
        saveMerged(path);
        return;
    }
    if (useAsBase) {
        name_untitled_documents(openDocuments(), path, format);
    } else {
        currentDocument()->fileInfo.setFile(path);
        currentDocument()->imgFormat_ = format;
    }
    // A failure does not stop the walk, which ends at the tab that it began with.
    for (int count = tabWidget->count(); count > 0; --count) {
        {
            const FrontTabScope front(tabWidget);
            file_save();
        }
        showNextTab();
    }
}

/// Saves the pages of all tabs into one file; the tabs keep their names and marks.
void ImageManager::saveMerged(const QString &path)
{
    ImageDocument merged{QString(), QString()};
    const QList<ImageDocument *> documents = openDocuments();
    for (const ImageDocument *const document : documents)
        for (uint page = 1; page <= document->pageCount(); ++page)
            (void)merged.addPage(document->page(page)); // a stored page is never null
    save_file(&merged, path, tiffWord);
}

QList<ImageDocument *> ImageManager::openDocuments() const
{
    QList<ImageDocument *> documents;
    for (int i = 0; i < tabWidget->count(); ++i)
        documents.append(qobject_cast<ImageDocumentView *>(tabWidget->widget(i))->document());
    return documents;
}

void ImageManager::showNextTab()
{
    tabWidget->setCurrentIndex((tabWidget->currentIndex() + 1) % tabWidget->count());
}

QMessageBox::StandardButton ImageManager::askToSave(const ImageDocument *document)
{
    const FrontTabScope front(tabWidget);
    const QString question = document->hasFile()
        ? tr("Image '%1' has been changed.\nDo you want to save it?").arg(document->fileName())
        : tr("Do you want to save the image?");
    return QMessageBox::information(this, windowTitle(), question,
                                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
}

bool ImageManager::confirmSave()
{
    const ImageDocument *const document = currentDocument();
    if (!document->isModified())
        return true;

    const QMessageBox::StandardButton answer = askToSave(document);
    if (answer != QMessageBox::Yes)
        return answer == QMessageBox::No;
    const FrontTabScope front(tabWidget);
    return file_save();
}

bool ImageManager::confirmSaveAll()
{
    for (int i = 0; i < tabWidget->count(); ++i) { // a question may last, and the tabs become more meanwhile
        const bool confirmed = confirmSave();
        showNextTab(); // Intended: also after a refusal, so the tab behind the refused one comes up
        if (!confirmed)
            return false;
    }
    return true;
}

void ImageManager::file_close()
{
    if (confirmSave())
        closeCurrentTab();
}

void ImageManager::file_close_all()
{
    if (confirmSaveAll())
        closeAllTabs();
}

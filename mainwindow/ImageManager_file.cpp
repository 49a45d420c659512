#include "BusyScope.h"
#include "CommandTab.h"
#include "file_dialogs.h"
#include "FrontTabScope.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageFormat.h"
#include "ImageManager.h"
#include "plain_box.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QTabWidget>

#include <algorithm>
#include <list>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString untitledBase = u"Untitled"_s;
const QString tiffWord = u"TIFF"_s;
const QString multipageTiffWord = u"MTIFF"_s;

/// What a document says of its failed save. The words for TIFF are fixed, and do not tell the reason.
QString words_of_failure(const ImageDocument &document)
{
    const bool isTold = document.lastErrorReason.isEmpty() || document.lastErrorReason == document.lastError;
    return isTold ? document.lastError : document.lastError + u'\n' + document.lastErrorReason;
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
    if (!open_file_dialog(path, format, this) || closed)
        return;
    if (!load_file(path, format, false) && !closed)
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
        (void)show_plain_box(QMessageBox::Warning, this, tr("Save failed"),
                             tr("Error saving image: %1").arg(words_of_failure(*doc)), QMessageBox::Ok);
    return saved;
}

/// Saves a tab's document, and asks first if pictures would be lost that are not open.
/// @param replaces  a replace question was just answered, and no second one comes
bool ImageManager::saveTab(const CommandTab &tab, const SaveTarget &target, bool replaces)
{
    if (tab.document()->wouldLosePictures(target.path, target.format)) {
        if (!replaces && (!confirmLoss(*tab.document()) || !tab))
            return false;
        if (is_tiff_word(target.format)) // under another word they are not lost but stay where they are
            return saveWithoutKeptPages(tab, target);
    }
    return save_file(tab.document(), target.path, target.format);
}

/// Saves the pages that are open alone. The others are forgotten once that has been done.
bool ImageManager::saveWithoutKeptPages(const CommandTab &tab, const SaveTarget &target)
{
    std::list<KeptPages> forgotten = tab.document()->takeKeptPages();
    const bool saved = save_file(tab.document(), target.path, target.format);
    if (!saved && tab)
        tab.document()->setKeptPages(std::move(forgotten));
    return saved;
}

bool ImageManager::confirmLoss(const ImageDocument &document)
{
    const FrontTabScope front(tabWidget);
    const QString question = tr("%1 holds %2 pictures, and not all of them are open. What is not open cannot be kept. "
                                "Save?")
                                 .arg(document.pictureFileName(), QString::number(document.pictureCount()));
    return show_plain_box(QMessageBox::Warning, this, windowTitle(), question, QMessageBox::Yes | QMessageBox::No,
                          QMessageBox::No)
        == QMessageBox::Yes;
}

bool ImageManager::file_save()
{
    const CommandTab tab(currentView());
    if (!tab || tab.document()->isEmpty()) {
        qWarning("ImageManager::file_save - nothing to save!");
        return true;
    }
    if (!tab.document()->hasFile())
        return file_save_as();
    return saveTab(tab, {.path = tab.document()->filePath(), .format = tab.document()->imgFormat()}, false);
}

bool ImageManager::file_save_as()
{
    const CommandTab tab(currentView());
    if (!tab || tab.document()->isEmpty()) {
        qWarning("ImageManager::file_save - nothing to save!");
        return true;
    }
    QString path = tab.document()->filePath();
    QString format = tab.document()->imgFormat();
    if (!save_file_dialog(path, format, this, nullptr)) {
        qWarning("ImageManager::file_save_as - dialog canceled or failed");
        return false;
    }
    return tab && saveTab(tab, {.path = path, .format = format}, QFileInfo::exists(path));
}

void ImageManager::file_save_all()
{
    QString path = untitledBase;
    QString format;
    bool useAsBase = true;
    const CommandTab current(currentView());
    {
        const FrontTabScope front(tabWidget);
        if (!save_all_file_dialog(path, format, useAsBase, this) || !current)
            return;
    }

    if (format == multipageTiffWord)
        saveMerged(path);
    else if (useAsBase)
        saveEach(numbered_targets(openDocuments(), path, format));
    else
        saveEach({{current.document(), {.path = path, .format = format}}});
}

/// Saves the tabs of this moment from the current one on, which is the current one afterwards too. A failure
/// does not stop the walk; a tab that comes meanwhile is no part of it.
void ImageManager::saveEach(const SaveTargets &targets)
{
    const FrontTabScope front(tabWidget);
    QList<CommandTab> walk;
    for (int i = 0; i < tabWidget->count(); ++i)
        walk.append(CommandTab(viewAt((tabWidget->currentIndex() + i) % tabWidget->count())));
    for (const CommandTab &tab : std::as_const(walk)) {
        if (!tab)
            continue;
        tabWidget->setCurrentWidget(tab.view());
        saveInWalk(tab, targets.value(tab.document()));
    }
}

/// Saves one tab of Save All. A document keeps its name, word and mark unless its save succeeds.
void ImageManager::saveInWalk(const CommandTab &tab, const SaveTarget &target)
{
    const QFileInfo file(target.path);
    const bool replaces = target.isNumbered && file.exists() && !file.isDir(); // a folder cannot be replaced
    if (target.path.isEmpty() || (replaces && !confirmReplace(file.fileName()))) {
        if (tab)
            file_save(); // asks for a name where there is none
    } else if (tab) {
        saveTab(tab, target, file.exists());
    }
}

/// The toolkit's own question, in its own words.
bool ImageManager::confirmReplace(const QString &fileName)
{
    const FrontTabScope front(tabWidget);
    return show_plain_box(QMessageBox::Warning, this, windowTitle(),
                          QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(fileName),
                          QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

/// Saves the pages of all tabs into one file, those that are not open behind those that are; the tabs keep their
/// names and marks.
void ImageManager::saveMerged(const QString &path)
{
    ImageDocument merged{QString(), QString()};
    const bool replaces = QFileInfo::exists(path);
    QList<CommandTab> tabs;
    for (int i = 0; i < tabWidget->count(); ++i)
        tabs.append(CommandTab(viewAt(i)));
    for (const CommandTab &tab : std::as_const(tabs)) {
        if (!tab)
            continue; // closed during a question
        const ImageDocument &document = *tab.document();
        for (uint page = 1; page <= document.pageCount(); ++page)
            (void)merged.addPage(document.page(page)); // a stored page is never null
        if (!merged.keepPagesOf(document) && !replaces && !confirmLoss(document))
            return;
    }
    if (!closed)
        save_file(&merged, path, tiffWord);
}

QList<ImageDocument *> ImageManager::openDocuments() const
{
    QList<ImageDocument *> documents;
    for (int i = 0; i < tabWidget->count(); ++i)
        documents.append(viewAt(i)->document());
    return documents;
}

ImageDocumentView *ImageManager::viewAt(int index) const
{
    return qobject_cast<ImageDocumentView *>(tabWidget->widget(index));
}

void ImageManager::showNextTab()
{
    if (const int count = tabWidget->count(); count != 0)
        tabWidget->setCurrentIndex((tabWidget->currentIndex() + 1) % count);
}

QMessageBox::StandardButton ImageManager::askToSave(const ImageDocument *document)
{
    const FrontTabScope front(tabWidget);
    const QString question = document->hasFile()
        ? tr("Image '%1' has been changed.\nDo you want to save it?").arg(document->fileName())
        : tr("Do you want to save the image?");
    return show_plain_box(QMessageBox::Information, this, windowTitle(), question,
                          QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
}

bool ImageManager::confirmSave()
{
    const CommandTab tab(currentView());
    if (!tab || !tab.document()->isModified())
        return true;

    const QMessageBox::StandardButton answer = askToSave(tab.document());
    if (answer != QMessageBox::Yes)
        return answer == QMessageBox::No;
    if (!tab)
        return true; // whoever closed it meanwhile has been asked too
    const FrontTabScope front(tabWidget);
    return file_save();
}

bool ImageManager::confirmSaveAll()
{
    QList<QPointer<ImageDocumentView>> present;
    for (int i = 0; i < tabWidget->count(); ++i)
        present.append(viewAt(i));
    QList<QPointer<ImageDocumentView>> asked; // tabs come and go while a question is open
    while (showTabBut(asked)) {
        asked.append(currentView());
        const bool confirmed = confirmSave();
        showNextTab(); // Intended: also after a refusal, so the tab behind the refused one comes up
        if (!confirmed)
            return false;
    }
    // What has come meanwhile has been seen by nobody; without a file of its own it is nowhere else.
    return std::ranges::all_of(
        asked, [&present](const auto &view) { return !view || present.contains(view) || view->document()->hasFile(); });
}

/// Brings up the first tab that is none of @p views, unless the current one is none of them. False if there is
/// no such tab.
bool ImageManager::showTabBut(const QList<QPointer<ImageDocumentView>> &views)
{
    for (int i = 0; i < tabWidget->count(); ++i) {
        if (!views.contains(currentView()))
            return true;
        tabWidget->setCurrentIndex(i);
    }
    return tabWidget->count() != 0 && !views.contains(currentView());
}

void ImageManager::file_close()
{
    const CommandTab tab(currentView());
    if (confirmSave() && tab)
        closeTab(tab.view());
}

void ImageManager::file_close_all()
{
    if (confirmSaveAll())
        closeAllTabs();
}

#include "file_dialogs.h"

#include "ImageFileDialog.h"
#include "ImageFormat.h"
#include "SaveAllFileDialog.h"
#include "writable_format.h"

#include <QDebug>
#include <QFileInfo>
#include <QImageWriter>

#include <algorithm>
#include <memory>
#include <new>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<ImageFileDialog> make_dialog(QWidget *parent)
{
    std::unique_ptr<ImageFileDialog> dialog(new (std::nothrow) ImageFileDialog(parent));
    if (!dialog)
        qWarning("Failed to create file dialog");
    return dialog;
}

QList<ImageFormat> formats_to_open()
{
    const ImageFormat graphic{GraphFormatKey, QT_TRANSLATE_NOOP("ImageFormat", "All graphic files"),
                              allExtensions(readableImageFormats())};
    return readableImageFormats() + QList<ImageFormat>{graphic, allFilesFormat};
}

QList<ImageFormat> formats_to_save(const char *onlyFormat)
{
    if (onlyFormat == nullptr)
        return writableImageFormats();
    return {writableImageFormats().at(indexOfFormat(writableImageFormats(), QString::fromUtf8(onlyFormat)))};
}

/// The TIFF record, whichever of its words the toolkit has as its key.
qsizetype index_of_tiff(const QList<ImageFormat> &formats)
{
    const auto it = std::ranges::find_if(formats, is_tiff_word, &ImageFormat::format);
    return it == formats.cend() ? -1 : it - formats.cbegin();
}

/// The one record to propose for a file, or -1. The first thing known decides, even if it leads nowhere.
qsizetype index_to_propose(const QList<ImageFormat> &formats, const QString &filePath, const QString &format)
{
    if (is_tiff_word(format))
        return index_of_tiff(formats);
    if (!format.isEmpty())
        return indexOfFormat(formats, format);
    const QString suffix = QFileInfo(filePath).completeSuffix();
    return suffix.isEmpty() ? indexOfFormat(formats, PngFormatKey) : indexOfExtension(formats, suffix);
}

void propose_name(ImageFileDialog &dialog, const QString &filePath)
{
    const QFileInfo file(filePath);
    if (file.isRelative())
        dialog.setDirectory(QDir::homePath());
    // An absolute path takes the dialog to its directory.
    dialog.selectFile(file.isRelative() ? file.fileName() : filePath);
}

void set_up_for_saving(ImageFileDialog &dialog, const QString &title, const QList<ImageFormat> &formats,
                       const QString &filePath, const QString &format)
{
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setViewMode(QFileDialog::List);
    dialog.setWindowTitle(title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setLabelText(QFileDialog::LookIn, QObject::tr("Save in:"));
    dialog.setFormats(formats);

    const qsizetype index = index_to_propose(formats, filePath, format);
    if (index != -1)
        dialog.selectNameFilter(filter_text(formats.at(index)));
    propose_name(dialog, filePath);
    // So that the proposed name fits the proposed format from the first moment. That of a TIFF fits with any of the
    // format's suffixes, and keeps the one that its program gave it.
    const QFileInfo file(filePath);
    if (is_tiff_word(format) && is_tiff_word(file.suffix()))
        dialog.showName(file.fileName());
    else
        dialog.OnFilterSelected(dialog.selectedNameFilter());
}

/// The key that the user's filter stands for; empty if it stands for none.
QString selected_format(const ImageFileDialog &dialog)
{
    return dialog.formatForFilter(dialog.selectedNameFilter()).format;
}

} // namespace

bool open_file_dialog(QString &filePath, QString &format, QWidget *parent)
{
    const auto dialog = make_dialog(parent);
    if (!dialog)
        return false;
    const QList<ImageFormat> formats = formats_to_open();
    dialog->setViewMode(QFileDialog::List);
    dialog->setWindowTitle(QObject::tr("Open File"));
    dialog->setDirectory(QDir::homePath());
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setFormats(formats);
    dialog->selectNameFilter(filter_text(formats.at(formats.size() - 2)));

    if (dialog->exec() != QDialog::Accepted)
        return false;

    filePath = dialog->selectedFile();
    if (filePath.isEmpty()) {
        qDebug("open_file_dialog - no name selected");
        return false;
    }
    format = selected_format(*dialog);
    // Intended: a path without a dot is its own format word, for want of anything better.
    if (format == GraphFormatKey || format == AllFormatKey)
        format = filePath.sliced(filePath.lastIndexOf(u'.') + 1);
    if (format.isEmpty()) {
        qDebug("open_file_dialog - incorrect file type selected!");
        return false;
    }
    return true;
}

bool save_file_dialog(QString &filePath, QString &format, QWidget *parent, const char *onlyFormat)
{
    const auto dialog = make_dialog(parent);
    if (!dialog)
        return false;
    dialog->setOption(QFileDialog::DontConfirmOverwrite); // accept() asks
    set_up_for_saving(*dialog, QObject::tr("Save File As"), formats_to_save(onlyFormat), filePath, format);

    if (dialog->exec() != QDialog::Accepted)
        return false;

    filePath = dialog->selectedFile();
    if (filePath.isEmpty()) {
        qWarning("save_file_dialog - no name selected");
        return false;
    }
    format = selected_format(*dialog);
    if (format.isEmpty()) {
        qWarning("save_file_dialog - incorrect file type selected!");
        return false;
    }
    return confirm_writable_format(format, QImageWriter::supportedImageFormats());
}

bool save_all_file_dialog(QString &filePath, QString &format, bool &useAsBase, QWidget *parent)
{
    SaveAllFileDialog dialog(parent);
    // Intended: the toolkit's own question is left on, so a name that exists is asked about twice.
    set_up_for_saving(dialog, QObject::tr("Save All"), writableAllImageFormats(), filePath, format);

    if (dialog.exec() != QDialog::Accepted)
        return false;

    filePath = dialog.selectedFile();
    if (filePath.isEmpty()) {
        qDebug("save_file_dialog - no name selected"); // Intended: the line is shared with the dialog for one file
        return false;
    }
    useAsBase = dialog.usesNameAsBasename();
    format = selected_format(dialog);
    if (format.isEmpty()) {
        qDebug("save_file_dialog - incorrect file type selected!");
        return false;
    }
    return true;
}

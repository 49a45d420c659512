#include "ImageFileDialog.h"

#include "plain_box.h"

#include <QFileInfo>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The field in which the toolkit's dialog takes the name.
QLineEdit *name_field(const QFileDialog &dialog)
{
    return dialog.findChild<QLineEdit *>("fileNameEdit"_L1);
}

/// Whether a name is typed or a row marked.
bool has_choice(const QFileDialog &dialog)
{
    if (!name_field(dialog)->text().isEmpty())
        return true;
    // The list of details shares this selection. A name deleted again marks the directory itself, which is no row.
    const auto *rows = dialog.findChild<QListView *>("listView"_L1);
    const QModelIndexList marked = rows->selectionModel()->selectedRows();
    return std::ranges::any_of(marked,
                               [rows](const QModelIndex &index) { return index.parent() == rows->rootIndex(); });
}

/// The toolkit takes a leading colon for the sign of an embedded resource; here it belongs to a file name.
bool looks_like_resource(const QString &name)
{
    return name.startsWith(u':');
}

/// The toolkit takes what stands in quotation marks for a name of its own, and drops the rest.
bool looks_like_list(const QString &name)
{
    return name.contains(u'"');
}

QString path_in(const QDir &directory, const QString &name)
{
    return name.startsWith(u'/') ? name : directory.absolutePath() + u'/' + name;
}

} // namespace

ImageFileDialog::ImageFileDialog(QWidget *parent) : QFileDialog(parent)
{
    setOption(DontUseNativeDialog);

    if (const auto *editor = findChild<QLineEdit *>("name/filter editor"_L1))
        maxNameLength = editor->maxLength();

    connect(this, &QFileDialog::filterSelected, this, &ImageFileDialog::OnFilterSelected);
}

void ImageFileDialog::setFormats(const QList<ImageFormat> &formats)
{
    QStringList filters;
    for (const ImageFormat &format : formats) {
        const QString filter = filter_text(format);
        filters.append(filter);
        filterFormats.insert(filter, format);
    }
    setNameFilters(filters);
}

ImageFormat ImageFileDialog::formatForFilter(const QString &filter) const
{
    return filterFormats.value(filter);
}

QString ImageFileDialog::selectedFile() const
{
    // Without a choice the toolkit would answer with the directory shown.
    if (!has_choice(*this))
        return {};
    if (const QString name = name_field(*this)->text(); looks_like_list(name))
        return path_in(directory(), name);
    const QString file = selectedFiles().value(0);
    return looks_like_resource(file) ? path_in(directory(), file) : file;
}

void ImageFileDialog::OnFilterSelected(const QString &filter)
{
    const QString file = selectedFile();
    if (file.isEmpty())
        return;
    const QString baseName = QFileInfo(file).completeBaseName();
    if (baseName.isEmpty())
        return;

    // Intended: the filter for all files ends the name in ".*", since its one suffix is "*".
    const QString extension = u'.' + formatForFilter(filter).exts.value(0);
    const QString name = baseName + extension;
    if (name.length() <= maxNameLength)
        showName(name);
    else
        (void)show_plain_box(QMessageBox::Information, this, {},
                             tr("Can't append '%1' extension, file name is too long.").arg(extension), QMessageBox::Ok);
}

void ImageFileDialog::showName(const QString &name)
{
    selectFile(looks_like_resource(name) ? path_in(directory(), name) : name);
    // selectFile() does not touch a field that has the focus.
    QLineEdit *const field = name_field(*this);
    if (field->text() != name)
        field->setText(name);
}

void ImageFileDialog::accept()
{
    const QString file = selectedFile();
    // Intended: a directory exists too, so its name raises the question before the dialog enters it.
    if (fileMode() != ExistingFile && QFileInfo::exists(file)) {
        const auto answer = show_plain_box(QMessageBox::Warning, this, windowTitle(),
                                           tr("File '%1' already exists.\nDo you want to replace it?").arg(file),
                                           QMessageBox::Yes | QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return;
    }
    // The toolkit would judge the name in the quotation marks; it is left to say that a file is not there.
    if (looks_like_list(name_field(*this)->text()) && (fileMode() != ExistingFile || QFileInfo::exists(file)))
        done(Accepted);
    else
        QFileDialog::accept();
}

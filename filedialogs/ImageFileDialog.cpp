#include "ImageFileDialog.h"

#include "plain_box.h"

#include <QChildEvent>
#include <QFileInfo>
#include <QFileSystemModel>
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

/// The path of the marked row; empty if none is marked.
QString marked_path(const QFileDialog &dialog)
{
    // The list of details shares this selection. A name deleted again marks the directory itself, which is no row.
    const auto *rows = dialog.findChild<QListView *>("listView"_L1);
    const QModelIndexList marked = rows->selectionModel()->selectedRows();
    const auto row =
        std::ranges::find_if(marked, [rows](const QModelIndex &index) { return index.parent() == rows->rootIndex(); });
    return row == marked.end() ? QString() : row->data(QFileSystemModel::FilePathRole).toString();
}

/// The toolkit takes a leading colon for the sign of an embedded resource; here it belongs to a file name.
bool looks_like_resource(const QString &name)
{
    return name.startsWith(u':');
}

/// Whether the typed name counts and the toolkit would misread it: it takes what stands in quotation marks for a name
/// of its own, and drops the rest.
bool looks_like_list(const QFileDialog &dialog)
{
    return name_field(dialog)->text().contains(u'"') && !QFileInfo(marked_path(dialog)).isDir();
}

QString path_in(const QDir &directory, const QString &name)
{
    return name.startsWith(u'/') ? name : directory.absolutePath() + u'/' + name;
}

} // namespace

ImageFileDialog::ImageFileDialog(QWidget *parent) : QFileDialog(parent)
{
    setOption(DontUseNativeDialog);
    connect(this, &QFileDialog::filterSelected, this, &ImageFileDialog::listFilesOf);

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
    if (name_field(*this)->text().isEmpty() && marked_path(*this).isEmpty())
        return {};
    if (looks_like_list(*this))
        return path_in(directory(), name_field(*this)->text());
    const QString file = selectedFiles().value(0);
    return looks_like_resource(file) ? path_in(directory(), file) : file;
}

void ImageFileDialog::OnFilterSelected(const QString &filter)
{
    // The toolkit keeps the typed name when a directory is marked, and answers with the directory.
    const QString typed = name_field(*this)->text();
    if (typed.isEmpty() && QFileInfo(selectedFile()).isDir())
        return;
    const QString baseName = QFileInfo(typed.isEmpty() ? selectedFile() : typed).completeBaseName();
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

void ImageFileDialog::listFilesOf(const QString &filter)
{
    // The toolkit would keep back names without a dot; what else the filters say it does as they say.
    if (formatForFilter(filter).exts == QStringList(u"*"_s))
        findChild<QFileSystemModel *>()->setNameFilters({u"*"_s});
}

void ImageFileDialog::childEvent(QChildEvent *event)
{
    QFileDialog::childEvent(event);
    // The toolkit's own questions show names too, which may look like markup.
    auto *const box = qobject_cast<QMessageBox *>(event->child());
    if (event->type() == QEvent::ChildPolished && box != nullptr)
        box->setTextFormat(Qt::PlainText);
}

void ImageFileDialog::accept()
{
    const QString file = selectedFile();
    const QFileInfo info(file);
    if (fileMode() != ExistingFile && info.exists() && !info.isDir()) {
        const auto answer = show_plain_box(QMessageBox::Warning, this, windowTitle(),
                                           tr("File '%1' already exists.\nDo you want to replace it?").arg(file),
                                           QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return;
    }
    // The toolkit would judge the name in the quotation marks; it is left to say that a file is not there.
    if (looks_like_list(*this) && info.isDir())
        setDirectory(file);
    else if (looks_like_list(*this) && (fileMode() != ExistingFile || info.exists()))
        done(Accepted);
    else
        QFileDialog::accept();
}

#pragma once

#include "ImageFormat.h"

#include <QFileDialog>
#include <QMap>

/// A file dialog that knows image formats: it keeps the name's suffix in step with the filter and
/// asks its own question before a file is replaced.
///
/// It is always the toolkit's own dialog, never the desktop's, since derived dialogs add widgets.
///
/// Errors:  shown in boxes on top of the dialog, which stays open.
/// Threads: GUI thread only.
class ImageFileDialog : public QFileDialog
{
    Q_OBJECT

public:
    explicit ImageFileDialog(QWidget *parent);

    /// Offers a filter for each record, in this order. Of records with the same filter text the last counts.
    void setFormats(const QList<ImageFormat> &formats);
    /// The record behind a filter, or an empty one for a text that is no filter.
    [[nodiscard]] ImageFormat formatForFilter(const QString &filter) const;

    /// Absolute path of what is named or marked; empty when the name field is empty and no row marked.
    [[nodiscard]] QString selectedFile() const;

    /// Proposes a file name as it stands, without a directory; no row is marked then.
    void showName(const QString &name);

public slots:
    /// Replaces the last suffix of the name by the first one of the filter's format, or tells that the
    /// name would become too long. A directory before the name is dropped; an empty name stays empty. What is
    /// typed counts, and the name of a marked directory never becomes that of a file.
    void OnFilterSelected(const QString &filter);

protected slots:
    /// Asks before it takes the name of a file that exists, unless an existing file is wanted. Enters directories.
    void accept() override;

protected:
    void childEvent(QChildEvent *event) override;

private:
    void listFilesOf(const QString &filter);

    int maxNameLength = 255; ///< of a file name with its suffix, in characters
    QMap<QString, ImageFormat> filterFormats; ///< by filter text
};

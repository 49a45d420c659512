#pragma once

#include <QDialog>
#include <QRegularExpression>

#include <memory>

class ImageDocument;
class MailedDocument;
class QImage;
class QLineEdit;
class Smtp;

namespace Ui {
class MailForm;
} // namespace Ui

/// Sends the file of a document by mail, after saving its first page where that is needed, and closes and deletes it
/// afterwards where that is wanted. The form is MailForm.ui; it remembers server, addresses and login.
///
/// Errors:    told in boxes. What becomes of the mail is told by the session, see Smtp.
/// Ownership: borrows the image and the document, which must outlive the form. Destroying it ends a session at once.
/// Threads:   GUI thread only; saving and composing block, the session does not.
class MailForm : public QDialog
{
    Q_OBJECT

public:
    /// @param page  what Save As writes; may be null, then nothing can be written
    MailForm(const QImage *page, MailedDocument &document, QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~MailForm() override;
    Q_DISABLE_COPY_MOVE(MailForm)

private slots:
    void sendMessage();
    void enableSend();
    void onAttachAs();
    void slotHelp();

private:
    void validate(QLineEdit *field, const QString &pattern);
    void readSettings();
    void writeSettings() const;
    void showDocument(const ImageDocument *document);
    [[nodiscard]] QString wrongInput() const;
    void saveAttachment(const QString &path, const QString &format);
    void showWarning(const QString &title, const QString &text);

    std::unique_ptr<Ui::MailForm> ui;
    std::unique_ptr<Smtp> smtp; ///< the session under way or the last one
    const QImage *image;
    MailedDocument *mailed;
};

#pragma once

class ImageDocument;

/// What the mail form asks of the main window.
class MailedDocument
{
public:
    MailedDocument() = default;
    MailedDocument(const MailedDocument &) = delete;
    MailedDocument &operator=(const MailedDocument &) = delete;
    MailedDocument(MailedDocument &&) = delete;
    MailedDocument &operator=(MailedDocument &&) = delete;

    /// The document whose page is sent, null once it is closed.
    [[nodiscard]] virtual ImageDocument *currentDocument() const = 0;
    /// Closes its tab, as the command does: the user may be asked whether to save, and may keep it.
    virtual void file_close() = 0;

protected:
    ~MailedDocument() = default;
};

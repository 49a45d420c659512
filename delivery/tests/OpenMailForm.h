#pragma once

#include "ImageDocument.h"
#include "MailedDocument.h"
#include "MailForm.h"
#include "pictures.h"
#include "TemporaryHome.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

/// A mail form about a saved page, shown, in a home of its own. It stands in for the main window.
class OpenMailForm : public MailedDocument
{
public:
    /// @param documentPath  relative for a document without a file of its own
    explicit OpenMailForm(const QString &documentPath = {}, bool isModified = false) :
        path(documentPath.isEmpty() ? home.filePath(QStringLiteral("scan.png")) : documentPath),
        document(std::make_unique<ImageDocument>(QString(), QString()))
    {
        if (documentPath.isEmpty() && !page.save(path))
            qFatal("OpenMailForm - no page");
        document->fileInfo.setFile(path);
        document->imgFormat_ = QStringLiteral("png");
        document->setModified(isModified);
    }

    void open()
    {
        form = std::make_unique<MailForm>(&page, *this);
        form->show();
        if (!QTest::qWaitForWindowExposed(form.get()))
            qFatal("OpenMailForm - no window");
    }

    [[nodiscard]] ImageDocument *currentDocument() const override { return document.get(); }
    void file_close() override
    {
        ++closings;
        wasThereAtClose = QFile::exists(path);
        document.reset();
    }

    template <typename Widget> [[nodiscard]] Widget *widget(const char *name) const
    {
        return form->findChild<Widget *>(QString::fromLatin1(name));
    }
    [[nodiscard]] QLineEdit *field(const char *name) const { return widget<QLineEdit>(name); }
    [[nodiscard]] QPushButton *button(const char *name) const { return widget<QPushButton>(name); }
    [[nodiscard]] QString text(const char *label) const { return widget<QLabel>(label)->text(); }

    /// Fills in a mail to a server in figures.
    void fillIn(const QString &server = QStringLiteral("127.0.0.2")) const
    {
        field("server")->setText(server);
        field("from")->setText(QStringLiteral("ann@example.test"));
        field("to")->setText(QStringLiteral("bob@nowhere.test"));
    }

    void openFilledIn(const QString &server = QStringLiteral("127.0.0.2"))
    {
        open();
        fillIn(server);
    }

    const TemporaryHome home;
    QString path;
    QImage page = patterned_page({8, 6});
    std::unique_ptr<ImageDocument> document;
    std::unique_ptr<MailForm> form;
    int closings = 0;
    bool wasThereAtClose = false;
};

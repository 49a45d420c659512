#include "MailForm.h"

#include "file_dialogs.h"
#include "help_launcher.h"
#include "ImageDocument.h"
#include "mail_settings.h"
#include "MailedDocument.h"
#include "page_file.h"
#include "plain_box.h"
#include "Smtp.h"
#include "StrictSmtpPolicy.h"
#include "ui_MailForm.h"
#include "WaitCursor.h"

#include <QFile>
#include <QPointer>
#include <QRegularExpressionValidator>

using namespace Qt::StringLiterals;

namespace {

constexpr int StatusLines = 6; ///< of the status text that are shown; a list of hosts may have hundreds

/// "." takes any character and "\\w" letters and figures of any script, but no combining marks.
QRegularExpression whole_text(const QString &pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::DotMatchesEverythingOption
                                  | QRegularExpression::UseUnicodePropertiesOption);
}

bool is_address(const QString &text)
{
    static const QRegularExpression address =
        whole_text(uR"([\w\p{M}]+([-+.][\w\p{M}]+)*@[\w\p{M}]+([-.][\w\p{M}]+)*\.[\w\p{M}]+([-.][\w\p{M}]+)*)"_s);
    return address.match(text).hasMatch();
}

} // namespace

MailForm::MailForm(const QImage *page, MailedDocument &document, QWidget *parent, Qt::WindowFlags flags) :
    QDialog(parent, flags),
    ui(std::make_unique<Ui::MailForm>()),
    image(page),
    mailed(&document)
{
    ui->setupUi(this);
    ui->sendStatus->setMaximumHeight(ui->sendStatus->fontMetrics().lineSpacing() * StatusLines);
    for (QLineEdit *const field : {ui->from, ui->to, ui->subject})
        validate(field, u".{1,512}"_s);
    validate(ui->port, u"[0-9]{1,5}"_s);
    validate(ui->server, u".{0,512}"_s);
    connect(ui->close, &QPushButton::clicked, this, &MailForm::close);
    connect(ui->attach_as, &QPushButton::clicked, this, &MailForm::onAttachAs);
    connect(ui->send, &QPushButton::clicked, this, &MailForm::sendMessage);
    connect(ui->help, &QPushButton::clicked, this, &MailForm::slotHelp);
    readSettings();
    showDocument(mailed->currentDocument());
}

MailForm::~MailForm()
{
    writeSettings();
    smtp.reset();
}

void MailForm::validate(QLineEdit *field, const QString &pattern)
{
    field->setValidator(new QRegularExpressionValidator(whole_text(pattern), this));
}

void MailForm::readSettings()
{
    const MailSettings settings = read_mail_settings();
    ui->server->setText(settings.server);
    ui->port->setText(settings.port);
    ui->from->setText(settings.sender);
    ui->to->setText(settings.recipient);
    ui->login->setText(settings.login);
    ui->password->setText(settings.password);
}

void MailForm::writeSettings() const
{
    write_mail_settings({.server = ui->server->text(),
                         .port = ui->port->text(),
                         .sender = ui->from->text(),
                         .recipient = ui->to->text(),
                         .login = ui->login->text(),
                         .password = ui->password->text()});
}

void MailForm::showDocument(const ImageDocument *document)
{
    if (!document || document->isModified()) {
        ui->send->setEnabled(false);
        ui->sendStatus->setText(tr("Image must be saved before sending"));
        return;
    }
    ui->subject->setText(document->fileName());
    if (document->hasFile())
        ui->attachment->setText(document->filePath());
    ui->sendStatus->setText(tr("No Operation in Progress"));
}

/// What keeps the mail from being sent, in the words of the box; empty if nothing does.
QString MailForm::wrongInput() const
{
    constexpr uint portEnd = 65536;
    if (ui->port->text().toUInt() >= portEnd) // Intended: no number counts as 0
        return u"\"Port\" should contain a number between 0 and 65535.\nExample:\n25"_s;
    if (!is_address(ui->from->text()))
        return u"\"From\" should contain your return e-mail address.\nExample:\nanna.keller@bluefield-press.example"_s;
    if (!is_address(ui->to->text()))
        return u"\"To\" should contain the mail recipient e-mail address.\n"
               "Example:\npaul.novak@northgate-archive.example"_s;
    static const QRegularExpression subject = whole_text(u".{1,250}"_s); // Intended: the field takes more
    if (!subject.match(ui->subject->text()).hasMatch())
        return u"\"Subject\" should be a string 1..250 characters long.\n"_s;
    if (ui->attachment->text().isEmpty()) // Intended: the button has another caption
        return u"Please select the name and type for the image file\nbeing attached to this message.\n"
               "Use the button \"Attach as...\""_s;
    return {};
}

void MailForm::sendMessage()
{
    const QString wrong = wrongInput();
    if (!wrong.isEmpty()) {
        showWarning(u"Invalid input"_s, wrong);
        return;
    }
    ui->send->setEnabled(false);
    ui->sendStatus->setText(tr("Looking up mail servers"));
    smtp.reset();
    repaint(); // the text has to be there before a long wait begins, and no event may come in between
    {
        const WaitCursor wait;
        smtp = std::make_unique<Smtp>(ui->server->text(), ui->port->text(), ui->login->text(), ui->password->text(),
                                      ui->from->text(), ui->to->text(), ui->subject->text(), ui->message->toPlainText(),
                                      ui->attachment->text(), smtp_policy(read_mail_strictness()));
    }
    connect(smtp.get(), &Smtp::completed, this, &MailForm::enableSend);
    connect(smtp.get(), &Smtp::status, ui->sendStatus, &QLabel::setText);
}

void MailForm::enableSend()
{
    ui->send->setEnabled(true);
    // Intended: the session may have failed all the same, see Smtp::releasesFile().
    if (!ui->delete_file->isChecked() || !smtp->releasesFile())
        return;
    const QString path = ui->attachment->text();
    const QPointer<MailForm> self(this);
    mailed->file_close();
    if (!self)
        return;
    qDebug("MailForm::enableSend() - remove file");
    if (!QFile::remove(path))
        showWarning(u"File System Error"_s, u"Unable to delete file %1"_s.arg(path));
}

void MailForm::onAttachAs()
{
    const ImageDocument *const document = mailed->currentDocument();
    QString path = document ? document->filePath() : ui->attachment->text();
    QString format = document ? document->imgFormat() : QString();
    const QPointer<MailForm> self(this);
    if (!save_file_dialog(path, format, this, nullptr)) {
        qDebug("MailForm::onAttachAs - dialog canceled or failed");
        return;
    }
    if (!self)
        return;
    saveAttachment(path, format);
    if (!self)
        return;

    ImageDocument *const saved = mailed->currentDocument();
    if (saved && !ui->delete_file->isChecked()) {
        // Intended: also after a write that failed.
        saved->fileInfo.setFile(path);
        saved->imgFormat_ = format;
        saved->setModified(false);
    }
    if (saved)
        ui->subject->setText(saved->fileName());
    ui->send->setEnabled(true);
    ui->sendStatus->setText(tr("No Operation in Progress"));
}

void MailForm::saveAttachment(const QString &path, const QString &format)
{
    if (write_page_file(*image, path, format)) {
        ui->attachment->setText(path);
        return;
    }
    qDebug("MailForm::onAttachAs - save(%s) failed!", qUtf8Printable(path));
    showWarning(u"Save failed"_s, u"Error saving file"_s);
}

void MailForm::slotHelp()
{
    showHelp(u"ImageEditorSendMessage.htm"_s, 0, 1, 0);
}

void MailForm::showWarning(const QString &title, const QString &text)
{
    (void)show_plain_box(QMessageBox::Warning, this, title, text, QMessageBox::Ok);
}

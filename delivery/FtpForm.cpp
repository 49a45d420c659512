#include "FtpForm.h"

#include "file_dialogs.h"
#include "help_launcher.h"
#include "network_protocols.h"
#include "page_file.h"
#include "plain_box.h"
#include "ui_FtpForm.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

bool is_anonymous(const QString &user)
{
    const QString name = user.toLower();
    return name.isEmpty() || name == "anonymous"_L1 || name == "ftp"_L1;
}

/// Whether other entries may help.
bool may_try_again(int errorCode)
{
    switch (errorCode) {
    case Q3NetworkOperation::ErrValid:
    case Q3NetworkOperation::ErrUnknownProtocol:
    case Q3NetworkOperation::ErrParse:
    case Q3NetworkOperation::ErrLoginIncorrect:
    case Q3NetworkOperation::ErrHostNotFound:
    case Q3NetworkOperation::ErrListChildren:
    case Q3NetworkOperation::ErrFileNotExisting:
        return true;
    default:
        return false;
    }
}

} // namespace

FtpForm::FtpForm(const QImage *page, QWidget *parent, Qt::WindowFlags flags) :
    QDialog(parent, flags),
    ui(std::make_unique<Ui::FtpForm>()),
    image(page)
{
    ui->setupUi(this);
    connect(ui->closeButton, &QPushButton::clicked, this, &FtpForm::reject);
    connect(ui->save_as, &QPushButton::clicked, this, &FtpForm::onSaveAs);
    connect(ui->upload, &QPushButton::clicked, this, &FtpForm::slotUpload);
    connect(ui->help, &QPushButton::clicked, this, &FtpForm::slotHelp);
    for (QLineEdit *field : {ui->remoteHost, ui->remotePath, ui->user, ui->pass})
        validate(field);
    connect(&op, &Q3UrlOperator::start, this, &FtpForm::slotRemoteStart);
    connect(&op, &Q3UrlOperator::finished, this, &FtpForm::slotRemoteFinished);
    connect(&op, &Q3UrlOperator::dataTransferProgress, this, &FtpForm::slotRemoteDataTransferProgress);
    connect(&op, &Q3UrlOperator::connectionStateChanged, this, &FtpForm::slotConnectionStateChanged);
    op.setPort(ui->port->value());
    ui->progress->hide();
    ui->help->setFixedWidth(ui->closeButton->sizeHint().width());
}

FtpForm::~FtpForm() = default;

void FtpForm::validate(QLineEdit *field)
{
    static const QRegularExpression text(QRegularExpression::anchoredPattern(u".{1,512}"_s),
                                         QRegularExpression::DotMatchesEverythingOption);
    field->setValidator(new QRegularExpressionValidator(text, this));
}

void FtpForm::onSaveAs()
{
    if (m_bSaving)
        return; // a second click, that came while the events of the first were let through
    const QScopedValueRollback saving(m_bSaving, true);
    const QPointer<FtpForm> self(this);
    const bool wasVisible = isVisible();
    qDebug("FtpForm::onSaveAs() - enter");
    QCoreApplication::processEvents();
    if (!self || isVisible() != wasVisible)
        return;

    QString path;
    QString format;
    if (!save_file_dialog(path, format, this, nullptr)) {
        qDebug("FtpForm::onSaveAs - dialog canceled or failed");
        return;
    }
    qDebug("FtpForm::onSaveAs() - save");
    if (write_page_file(*image, path, format))
        takeFile(path);
    else
        refuseFile(path);
    qDebug("FtpForm::onSaveAs() - exit");
}

void FtpForm::takeFile(const QString &path)
{
    localName = QFileInfo(path).fileName();
    ui->local_file->setText(path);
    ui->local_file->setToolTip(u"<span style='white-space:pre'>"_s + path.toHtmlEscaped() + u"</span>"_s);
    m_bSavedMeanwhile = m_bTransfer;
    ui->upload->setEnabled(!m_bTransfer);
}

void FtpForm::refuseFile(const QString &path)
{
    ui->local_file->clear();
    ui->local_file->setToolTip({});
    m_bSavedMeanwhile = false;
    ui->upload->setEnabled(false);
    qDebug("FtpForm::onSaveAs - save(%s) failed!", qUtf8Printable(path));
    (void)show_plain_box(QMessageBox::Warning, this, u"Save failed"_s, u"Error saving file"_s, QMessageBox::Ok);
    localName.clear();
}

void FtpForm::slotUpload()
{
    q3InitNetworkProtocols();
    if (ui->remoteHost->text().isEmpty()) {
        ui->remoteHost->setFocus();
        return;
    }
    if (ui->local_file->text().isEmpty()) {
        ui->save_as->setFocus();
        return;
    }
    setLocation();
    ui->upload->setEnabled(false);
    m_bTransfer = true;
    m_bSavedMeanwhile = false;
    remoteName =
        u"ftp://"_s + ui->remoteHost->text() + u':' + ui->port->text() + ui->remotePath->text() + u'/' + localName;
    (void)op.copy(u"file:"_s + ui->local_file->text(), op.toString(), ui->delete_file->isChecked(), true);
}

void FtpForm::setLocation()
{
    op = u"ftp://"_s + ui->remoteHost->text();
    if (ui->remotePath->text().isEmpty())
        ui->remotePath->setText(u"/"_s);
    op.setPath(ui->remotePath->text());
    op.setHost(ui->remoteHost->text());
    const bool isNamed = !is_anonymous(ui->user->text());
    op.setUser(isNamed ? ui->user->text() : QString());
    op.setPassword(isNamed ? ui->pass->text() : QString());
    op.setPort(ui->port->value());
}

void FtpForm::slotRemoteStart(Q3NetworkOperation *operation)
{
    if (!operation) {
        qDebug("FtpForm::slotRemoteStart - bad operation!");
        return;
    }
    if (operation->operation() != Q3NetworkOperation::OpGet)
        return;
    ui->progress->setMaximum(0);
    ui->progress->reset();
}

void FtpForm::slotRemoteFinished(Q3NetworkOperation *operation)
{
    if (!operation) {
        qDebug(" FtpForm::slotRemoteFinished - bad operation!");
        return;
    }
    if (operation->state() == Q3NetworkOperation::StFailed) {
        const auto kind = operation->operation();
        const int errorCode = operation->errorCode(); // the operation may go while the box stands
        const QPointer<FtpForm> self(this);
        (void)show_plain_box(QMessageBox::Critical, this, tr("ERROR"), operation->protocolDetail(), QMessageBox::Ok);
        // After a file that could not be removed the upload is still to be told.
        if (self && kind != Q3NetworkOperation::OpRemove)
            endTransfer(may_try_again(errorCode));
        return;
    }
    if (operation->operation() == Q3NetworkOperation::OpPut) {
        m_bTransfer = false;
        done(1);
    } else if (operation->operation() == Q3NetworkOperation::OpGet) {
        ui->progress->setMaximum(0);
        ui->progress->reset();
    }
}

void FtpForm::endTransfer(bool mayTryAgain)
{
    m_bTransfer = false;
    if (mayTryAgain)
        ui->pass->clear();
    if (mayTryAgain || m_bSavedMeanwhile)
        ui->upload->setEnabled(true);
}

void FtpForm::slotRemoteDataTransferProgress(int bytesDone, int bytesTotal, Q3NetworkOperation *operation)
{
    if (!operation) {
        qDebug("FtpForm::slotRemoteDataTransferProgress - bad operation!");
        return;
    }
    if (!ui->progress->isVisible()) {
        if (bytesTotal <= bytesDone) {
            qDebug("FtpForm::slotRemoteDataTransferProgress - transfer apparently finished");
            return;
        }
        ui->status->show();
        ui->progress->show();
        ui->progress->setMaximum(bytesTotal);
        ui->progress->setValue(0);
        ui->progress->reset();
    }
    if (ui->progress->maximum() != bytesTotal)
        ui->progress->setMaximum(bytesTotal);
    if (operation->operation() == Q3NetworkOperation::OpGet) {
        ui->status->setText(tr("Read: %1").arg(operation->arg(0)));
        ui->progress->setValue(bytesDone);
    } else if (operation->operation() == Q3NetworkOperation::OpPut) {
        ui->status->setText(tr("Write: %1").arg(remoteName));
        ui->progress->setValue(bytesDone);
    } else {
        qDebug("FtpForm::slotRemoteDataTransferProgress - unknown operation!");
    }
}

void FtpForm::slotConnectionStateChanged(int state, const QString &message)
{
    Q_UNUSED(state);
    ui->status->setText(message);
}

void FtpForm::slotHelp()
{
    showHelp(u"ImageEditorFTPUpload.htm"_s, 0, 1, 0);
}

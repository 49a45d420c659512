#pragma once

#include "Q3UrlOperator.h"

#include <QDialog>
#include <QString>

#include <memory>

class QImage;
class QLineEdit;

namespace Ui {
class FtpForm;
} // namespace Ui

/// Saves a page to a file and uploads this file by FTP. The form is FtpForm.ui; it keeps nothing between uses.
///
/// A finished upload closes the form with the result 1. The fields of a login stay out of all texts and lines.
///
/// Errors:    told in boxes; those of the transfer come from Q3UrlOperator.
/// Ownership: borrows the image, which must outlive the form. Destroying the form stops a transfer at once.
/// Threads:   GUI thread only; saving blocks, the transfer does not.
class FtpForm : public QDialog
{
    Q_OBJECT

public:
    explicit FtpForm(const QImage *page, QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~FtpForm() override;
    Q_DISABLE_COPY_MOVE(FtpForm)

private slots:
    void onSaveAs();
    void slotUpload();
    void slotRemoteStart(Q3NetworkOperation *operation);
    void slotRemoteFinished(Q3NetworkOperation *operation);
    void slotRemoteDataTransferProgress(int bytesDone, int bytesTotal, Q3NetworkOperation *operation);
    void slotConnectionStateChanged(int state, const QString &message);
    void slotHelp();

private:
    void validate(QLineEdit *field);
    void setLocation();
    void endTransfer(bool mayTryAgain);
    void takeFile(const QString &path);
    void refuseFile(const QString &path);

    std::unique_ptr<Ui::FtpForm> ui;
    const QImage *image;
    Q3UrlOperator op;
    QString remoteName; ///< where the file goes, for the status line
    QString localName; ///< the local file's name without directories
    bool m_bSaving = false; ///< onSaveAs() runs
    bool m_bTransfer = false; ///< a copy runs
    bool m_bSavedMeanwhile = false; ///< a file was saved while it ran
};

#include "FtpServer.h"
#include "NextDialog.h"
#include "NextFileDialog.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {

/// Saves the page of the form as BMP and answers the file's path.
QString save_page(const QDialog &form, const WindowFixture &fixture)
{
    QString path = fixture.home.filePath(u"sent.bmp"_s);
    const NextFileDialog dialog([&path](QFileDialog &box) {
        for (const QString &filter : box.nameFilters()) {
            if (filter.contains("*.bmp"_L1))
                box.selectNameFilter(filter);
        }
        NextFileDialog::accept(box, path);
    });
    form.findChild<QPushButton *>(u"save_as"_s)->click();
    return path;
}

} // namespace

class tst_ImageManager_upload : public QObject
{
    Q_OBJECT

private slots:
    void theFirstPageGoesOutWhateverPageIsOnShow();
    void theDocumentKeepsItsNameAndItsMark();
    void withoutADocumentNothingComes();
    void aTabThatClosesMeanwhileEndsTheCommand();
    void closingTheFormEndsTheTransfer();
};

void tst_ImageManager_upload::theFirstPageGoesOutWhateverPageIsOnShow()
{
    WindowFixture fixture(u"a.png"_s, QSize(64, 48));
    QVERIFY(fixture.currentView()->document()->addPage(patterned_page(QSize(30, 20))));
    FtpServer server;
    QString path;
    const NextDialog dialog([&](QDialog &form) {
        QCOMPARE(form.objectName(), u"FtpForm"_s);
        QCOMPARE(form.parentWidget(), &fixture.window);
        path = save_page(form, fixture);
        form.findChild<QLineEdit *>(u"remoteHost"_s)->setText(u"127.0.0.1"_s);
        form.findChild<QSpinBox *>(u"port"_s)->setValue(server.port());
        form.findChild<QPushButton *>(u"upload"_s)->click();
    });

    fixture.window.upload_ftp(); // until the upload has closed the form

    QCOMPARE(server.commands().last(), QByteArray("STOR /sent.bmp"));
    QCOMPARE(QImage::fromData(server.data()).size(), QSize(64, 48));
}

void tst_ImageManager_upload::theDocumentKeepsItsNameAndItsMark()
{
    WindowFixture fixture(u"a.png"_s);
    fixture.currentView()->document()->setModified(true);
    const NextDialog dialog([&](QDialog &form) {
        (void)save_page(form, fixture);
        form.reject();
    });

    fixture.window.upload_ftp();

    QCOMPARE(fixture.titles(), QStringList(u"a.png*"_s));
}

void tst_ImageManager_upload::withoutADocumentNothingComes()
{
    WindowFixture fixture;

    fixture.window.upload_ftp();

    QVERIFY(!QApplication::activeModalWidget());
}

void tst_ImageManager_upload::aTabThatClosesMeanwhileEndsTheCommand()
{
    WindowFixture fixture(u"a.png"_s);
    QMetaObject::invokeMethod(&fixture.window, &ImageManager::file_close, Qt::QueuedConnection);

    fixture.window.upload_ftp();

    QCOMPARE(fixture.tabs()->count(), 0);
}

void tst_ImageManager_upload::closingTheFormEndsTheTransfer()
{
    WindowFixture fixture(u"a.png"_s);
    FtpServer server;
    server.say("end", {});
    const NextDialog dialog([&](QDialog &form) {
        (void)save_page(form, fixture);
        form.findChild<QLineEdit *>(u"remoteHost"_s)->setText(u"127.0.0.1"_s);
        form.findChild<QSpinBox *>(u"port"_s)->setValue(server.port());
        form.findChild<QPushButton *>(u"upload"_s)->click();
        QTRY_VERIFY(server.hasDataEnded());
        form.reject();
    });

    fixture.window.upload_ftp();

    QTRY_VERIFY(!server.hasClient());
}

QTEST_MAIN(tst_ImageManager_upload)
#include "tst_ImageManager_upload.moc"

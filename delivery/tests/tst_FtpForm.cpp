#include "DiagnosticLines.h"
#include "FtpForm.h"
#include "FtpServer.h"
#include "NextBox.h"
#include "NextFileDialog.h"
#include "TemporaryHome.h"

#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QImage small_page()
{
    QImage page(8, 8, QImage::Format_RGB32);
    page.fill(0xff336699);
    return page;
}

/// More than a network holds.
QImage large_page()
{
    QImage page(3000, 3000, QImage::Format_RGB32);
    page.fill(0xff336699);
    return page;
}

/// A form on show, and a server to upload to.
struct Trial
{
    explicit Trial(const QImage &shown = small_page()) : page(shown), form(std::make_unique<FtpForm>(&page))
    {
        form->show();
        isShown = QTest::qWaitForWindowExposed(form.get());
    }

    template <typename Widget> [[nodiscard]] Widget *find(const char *name) const
    {
        return form->findChild<Widget *>(QLatin1StringView(name));
    }
    [[nodiscard]] QLineEdit *field(const char *name) const { return find<QLineEdit>(name); }
    [[nodiscard]] QPushButton *button(const char *name) const { return find<QPushButton>(name); }
    [[nodiscard]] QString label(const char *name) const { return find<QLabel>(name)->text(); }

    [[nodiscard]] QString filePath() const { return home.filePath(u"scan #1.bmp"_s); }
    void saveAs() const { saveAs(filePath()); }
    void saveAs(const QString &path) const
    {
        const NextFileDialog dialog([path](QFileDialog &box) {
            for (const QString &filter : box.nameFilters()) {
                if (filter.contains("*.bmp"_L1))
                    box.selectNameFilter(filter);
            }
            NextFileDialog::accept(box, path);
        });
        button("save_as")->click();
    }
    /// Saves, and enters a host and its port.
    void prepare() const
    {
        saveAs();
        field("remoteHost")->setText(u"127.0.0.1"_s);
        find<QSpinBox>("port")->setValue(server.port());
    }
    void upload() const { button("upload")->click(); }
    [[nodiscard]] bool ends() const
    {
        return QTest::qWaitFor([this] { return !form->isVisible(); }, 20000);
    }

    TemporaryHome home;
    FtpServer server;
    QImage page;
    std::unique_ptr<FtpForm> form;
    bool isShown = false;
};

/// One of the form's own slots, as an operator's signal would run it.
void run_slot(FtpForm &form, const char *slot, Q3NetworkOperation *operation)
{
    QVERIFY(QMetaObject::invokeMethod(&form, slot, Q_ARG(Q3NetworkOperation *, operation)));
}

} // namespace

class tst_FtpForm : public QObject
{
    Q_OBJECT

private slots:
    void beginsEmptyWithNothingToUpload();
    void widgetsStandInReadingOrderAndHaveNames();
    void fieldsTakeUpTo512Characters_data();
    void fieldsTakeUpTo512Characters();
    void portsGoFrom1To65535();
    void goodSaveAsShowsThePathAndEnablesUpload();
    void cancelledSaveAsChangesNothing();
    void failedSaveAsEmptiesTheFileAndDisablesUpload();
    void secondClickOnSaveAsOpensNoSecondDialog();
    void uploadWithoutAHostGoesToTheHost();
    void uploadWithoutAFileGoesToSaveAs();
    void finishedUploadClosesTheForm();
    void fileArrivesUnderItsNameInThePath_data();
    void fileArrivesUnderItsNameInThePath();
    void emptyPathBecomesTheTopmostAndIsShown();
    void anonymousUsersSetNoCredentials_data();
    void anonymousUsersSetNoCredentials();
    void namedUserLogsIn_data();
    void namedUserLogsIn();
    void deletedFileIsGoneWhenTheFormCloses();
    void failedDeleteShowsItsBoxAndThenTheFormCloses();
    void refusedLoginEmptiesThePasswordAndEnablesUpload();
    void hostNotFoundEmptiesThePasswordAndEnablesUpload();
    void otherFailureLeavesUploadDisabledUntilTheNextSaveAs();
    void uploadIsDisabledWhileItRuns();
    void saveAsDuringATransferEnablesUploadOnlyAfterIt();
    void progressIsShownAndTellsWhereTheFileGoes();
    void reportsOfNothingLeftDoNotShowTheBar();
    void barWithNothingToGoThroughStandsStill();
    void lostOperationsAreNoted();
    void otherOperationsAreIgnored();
    void closingStopsTheTransfer_data();
    void closingStopsTheTransfer();
    void serversWordsAreShownAsTheyStand();
    void longTextsDoNotWidenTheForm();
    void credentialsStayOutOfLinesAndTexts();
};

void tst_FtpForm::beginsEmptyWithNothingToUpload()
{
    const Trial trial;

    QCOMPARE(trial.form->objectName(), u"FtpForm"_s);
    QCOMPARE(trial.form->windowTitle(), u"Upload Image by FTP"_s);
    for (const char *name : {"remoteHost", "remotePath", "user", "pass"})
        QCOMPARE(trial.field(name)->text(), QString());
    QCOMPARE(trial.find<QSpinBox>("port")->value(), 21);
    QCOMPARE(trial.field("pass")->echoMode(), QLineEdit::Password);
    QVERIFY(!trial.button("upload")->isEnabled());
    QVERIFY(!trial.find<QCheckBox>("delete_file")->isChecked());
    QVERIFY(!trial.find<QProgressBar>("progress")->isVisible());
    QCOMPARE(trial.label("status"), u"No Operation in Progress"_s);
    QCOMPARE(trial.label("local_file"), QString());
    QCOMPARE(trial.button("help")->width(), trial.button("closeButton")->width());
}

void tst_FtpForm::widgetsStandInReadingOrderAndHaveNames()
{
    const Trial trial;
    QStringList texts;
    for (const char *name : {"remoteHostLabel", "portLabel", "remotePathLabel", "userLabel", "passLabel"})
        texts += trial.label(name);
    for (const char *name : {"save_as", "upload", "closeButton", "help"})
        texts += trial.button(name)->text();
    texts += trial.find<QCheckBox>("delete_file")->text();

    QCOMPARE(texts,
             (QStringList{u"Remote Host:"_s, u"Port:"_s, u"Remote Path:"_s, u"Username:"_s, u"Password:"_s,
                          u"Save As..."_s, u"&Upload"_s, u"Close"_s, u"Help"_s, u"Delete after Upload"_s}));
    int above = -1;
    for (const char *name :
         {"remoteHost", "remotePath", "user", "pass", "save_as", "upload", "status", "closeButton"}) {
        const int y = trial.find<QWidget>(name)->y();
        QVERIFY2(y > above, name);
        above = y;
    }
    QCOMPARE(trial.form->layout()->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(trial.form->layout()->spacing(), 6);
}

void tst_FtpForm::fieldsTakeUpTo512Characters_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : {"remoteHost", "remotePath", "user", "pass"})
        QTest::addRow("%s", name) << QByteArray(name);
}

void tst_FtpForm::fieldsTakeUpTo512Characters()
{
    QFETCH(const QByteArray, name);
    const Trial trial;
    QLineEdit *const field = trial.field(name);

    field->insert(QString(512, u'x'));
    QCOMPARE(field->text().size(), 512);
    QVERIFY(field->hasAcceptableInput());

    field->insert(u"x"_s);
    QCOMPARE(field->text().size(), 512);

    field->clear();
    QVERIFY(!field->hasAcceptableInput());
}

void tst_FtpForm::portsGoFrom1To65535()
{
    const Trial trial;
    const auto *const port = trial.find<QSpinBox>("port");

    QCOMPARE(port->minimum(), 1);
    QCOMPARE(port->maximum(), 65535);
    QCOMPARE(port->minimumWidth(), 75);
}

void tst_FtpForm::goodSaveAsShowsThePathAndEnablesUpload()
{
    const Trial trial;
    const DiagnosticLines lines;

    trial.saveAs();

    QCOMPARE(trial.label("local_file"), trial.filePath());
    QVERIFY(trial.button("upload")->isEnabled());
    QCOMPARE(QImage(trial.filePath()), trial.page);
    QCOMPARE(lines.lines().filter(u"FtpForm"_s),
             (QStringList{u"FtpForm::onSaveAs() - enter"_s, u"FtpForm::onSaveAs() - save"_s,
                          u"FtpForm::onSaveAs() - exit"_s}));
}

void tst_FtpForm::cancelledSaveAsChangesNothing()
{
    const Trial trial;
    trial.saveAs();
    const DiagnosticLines lines;

    const NextFileDialog dialog([](QFileDialog &box) { box.reject(); });
    trial.button("save_as")->click();

    QCOMPARE(trial.label("local_file"), trial.filePath());
    QVERIFY(trial.button("upload")->isEnabled());
    QCOMPARE(lines.lines().filter(u"FtpForm"_s),
             (QStringList{u"FtpForm::onSaveAs() - enter"_s, u"FtpForm::onSaveAs - dialog canceled or failed"_s}));
}

void tst_FtpForm::failedSaveAsEmptiesTheFileAndDisablesUpload()
{
    Trial trial;
    trial.saveAs();
    trial.page = QImage();
    DiagnosticLines lines;
    const NextBox box = answer_next_box(QMessageBox::Ok);

    trial.saveAs(trial.home.filePath(u"other.bmp"_s));

    QVERIFY(box.hasCome());
    QCOMPARE(box.title(), u"Save failed"_s);
    QCOMPARE(box.text(), u"Error saving file"_s);
    QCOMPARE(trial.label("local_file"), QString());
    QVERIFY(!trial.button("upload")->isEnabled());
    QVERIFY(lines.contains(u"FtpForm::onSaveAs - save(%1) failed!"_s.arg(trial.home.filePath(u"other.bmp"_s))));
    QVERIFY(lines.contains(u"FtpForm::onSaveAs() - exit"_s));
}

void tst_FtpForm::secondClickOnSaveAsOpensNoSecondDialog()
{
    const Trial trial;
    int dialogs = 0;
    const NextFileDialog dialog([&dialogs](QFileDialog &box) {
        ++dialogs;
        box.reject();
    });
    QMetaObject::invokeMethod(trial.button("save_as"), &QPushButton::click, Qt::QueuedConnection);

    trial.button("save_as")->click(); // lets the other click through

    QCOMPARE(dialogs, 1);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_FtpForm::uploadWithoutAHostGoesToTheHost()
{
    const Trial trial;
    trial.saveAs();
    trial.button("help")->setFocus();

    trial.upload();

    QVERIFY(trial.field("remoteHost")->hasFocus());
    QVERIFY(trial.button("upload")->isEnabled());
    QCOMPARE(trial.field("remotePath")->text(), QString());
}

void tst_FtpForm::uploadWithoutAFileGoesToSaveAs()
{
    Trial trial;
    trial.field("remoteHost")->setText(u"127.0.0.1"_s);
    trial.find<QWidget>("upload")->setEnabled(true); // as after a failure, when the file has gone

    trial.upload();

    QVERIFY(trial.button("save_as")->hasFocus());
    QCOMPARE(trial.server.sessions(), 0);
}

void tst_FtpForm::finishedUploadClosesTheForm()
{
    const Trial trial;
    trial.prepare();
    const QSignalSpy finished(trial.form.get(), &QDialog::finished);

    trial.upload();
    QVERIFY(trial.ends());

    QCOMPARE(finished.first().first().toInt(), 1);
    QFile file(trial.filePath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(trial.server.data(), file.readAll());
}

void tst_FtpForm::fileArrivesUnderItsNameInThePath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("command");

    QTest::newRow("topmost") << u"/"_s << QByteArray("STOR /scan #1.bmp");
    QTest::newRow("directory") << u"/in/box"_s << QByteArray("STOR /in/box/scan #1.bmp");
    QTest::newRow("ends in a slash") << u"/in/box/"_s << QByteArray("STOR /in/box/scan #1.bmp");
    QTest::newRow("relative") << u"in"_s << QByteArray("STOR /in/scan #1.bmp");
    QTest::newRow("512 characters") << QString(512, u'y') << "STOR /" + QByteArray(512, 'y') + "/scan #1.bmp";
}

void tst_FtpForm::fileArrivesUnderItsNameInThePath()
{
    QFETCH(const QString, path);
    QFETCH(const QByteArray, command);
    const Trial trial;
    trial.prepare();
    trial.field("remotePath")->setText(path);

    trial.upload();
    QVERIFY(trial.ends());

    QCOMPARE(trial.server.commands().last(), command);
}

void tst_FtpForm::emptyPathBecomesTheTopmostAndIsShown()
{
    const Trial trial;
    trial.prepare();

    trial.upload();

    QCOMPARE(trial.field("remotePath")->text(), u"/"_s);
    QVERIFY(trial.ends());
}

void tst_FtpForm::anonymousUsersSetNoCredentials_data()
{
    QTest::addColumn<QString>("user");
    for (const char *user : {"", "anonymous", "ANONYMOUS", "Anonymous", "ftp", "FTP"})
        QTest::addRow("\"%s\"", user) << QString::fromLatin1(user);
}

void tst_FtpForm::anonymousUsersSetNoCredentials()
{
    QFETCH(const QString, user);
    const Trial trial;
    trial.prepare();
    trial.field("user")->setText(user);
    trial.field("pass")->setText(u"secret"_s);

    trial.upload();
    QVERIFY(trial.ends());

    QCOMPARE(trial.server.commands().first(2), (QList<QByteArray>{"USER anonymous", "PASS anonymous@"}));
}

void tst_FtpForm::namedUserLogsIn_data()
{
    QTest::addColumn<QString>("password");
    QTest::newRow("with a password") << u"se:cr@t/ä"_s;
    QTest::newRow("without") << u""_s;
}

void tst_FtpForm::namedUserLogsIn()
{
    QFETCH(const QString, password);
    const Trial trial;
    trial.prepare();
    trial.field("user")->setText(u"ftp2"_s);
    trial.field("pass")->setText(password);

    trial.upload();
    QVERIFY(trial.ends());

    QCOMPARE(trial.server.commands().first(2), (QList<QByteArray>{"USER ftp2", "PASS " + password.toUtf8()}));
}

void tst_FtpForm::deletedFileIsGoneWhenTheFormCloses()
{
    const Trial trial;
    trial.prepare();
    trial.find<QCheckBox>("delete_file")->setChecked(true);

    trial.upload();
    QVERIFY(trial.ends());

    QVERIFY(!QFile::exists(trial.filePath()));
}

void tst_FtpForm::failedDeleteShowsItsBoxAndThenTheFormCloses()
{
    Trial trial;
    trial.prepare();
    trial.find<QCheckBox>("delete_file")->setChecked(true);
    trial.server.say("end", {});
    trial.upload();
    QTRY_VERIFY(trial.server.hasDataEnded());
    QVERIFY(QFile::remove(trial.filePath()));
    const NextBox box = answer_next_box(QMessageBox::Ok);

    trial.server.sayNow("226 Thanks\r\n");
    QVERIFY(trial.ends());

    QVERIFY(box.hasCome());
    QCOMPARE(box.title(), u"ERROR"_s);
    QCOMPARE(box.text(), u"Could not remove file or directory\n"_s + trial.filePath());
    QCOMPARE(trial.form->result(), 1);
}

void tst_FtpForm::refusedLoginEmptiesThePasswordAndEnablesUpload()
{
    Trial trial;
    trial.prepare();
    trial.field("user")->setText(u"bob"_s);
    trial.field("pass")->setText(u"secret"_s);
    trial.field("remotePath")->setText(u"/in"_s);
    trial.find<QCheckBox>("delete_file")->setChecked(true);
    trial.server.say("PASS", "530 Login incorrect\r\n");
    const NextBox box = answer_next_box(QMessageBox::Ok);

    trial.upload();
    QTRY_VERIFY(box.hasCome());

    QCOMPARE(box.title(), u"ERROR"_s);
    QCOMPARE(box.text(), u"Login failed:\nLogin incorrect"_s);
    QCOMPARE(box.buttons(), QMessageBox::Ok);
    QTRY_VERIFY(trial.button("upload")->isEnabled());
    QCOMPARE(trial.field("pass")->text(), QString());
    QCOMPARE(trial.field("remoteHost")->text(), u"127.0.0.1"_s);
    QCOMPARE(trial.field("remotePath")->text(), u"/in"_s);
    QCOMPARE(trial.field("user")->text(), u"bob"_s);
    QCOMPARE(trial.find<QSpinBox>("port")->value(), int{trial.server.port()});
    QCOMPARE(trial.label("local_file"), trial.filePath());
    QVERIFY(trial.find<QCheckBox>("delete_file")->isChecked());
    QVERIFY(QFile::exists(trial.filePath()));
}

void tst_FtpForm::hostNotFoundEmptiesThePasswordAndEnablesUpload()
{
    const Trial trial;
    trial.prepare();
    trial.field("remoteHost")->setText(u"127.0.0.1:21"_s);
    trial.field("pass")->setText(u"secret"_s);
    const NextBox box = answer_next_box(QMessageBox::Ok);

    trial.upload();
    QTRY_VERIFY(box.hasCome());

    QCOMPARE(box.text(), u"Connecting to host failed:\nHost 127.0.0.1:21 not found"_s);
    QTRY_VERIFY(trial.button("upload")->isEnabled());
    QCOMPARE(trial.field("pass")->text(), QString());
}

void tst_FtpForm::otherFailureLeavesUploadDisabledUntilTheNextSaveAs()
{
    Trial trial;
    trial.prepare();
    trial.field("user")->setText(u"bob"_s);
    trial.field("pass")->setText(u"secret"_s);
    trial.server.say("STOR", "553 Not allowed\r\n");
    const NextBox box = answer_next_box(QMessageBox::Ok);
    trial.upload();
    QTRY_VERIFY(box.hasCome());
    QTRY_VERIFY(!QApplication::activeModalWidget());

    QCOMPARE(box.text(), u"Uploading file failed:\nNot allowed"_s);
    QVERIFY(!trial.button("upload")->isEnabled());
    QCOMPARE(trial.field("pass")->text(), u"secret"_s);

    const NextBox replace = answer_next_box(QMessageBox::Yes);
    trial.saveAs();
    QVERIFY(trial.button("upload")->isEnabled());
}

void tst_FtpForm::uploadIsDisabledWhileItRuns()
{
    Trial trial;
    trial.prepare();
    trial.server.say("greeting", {});

    trial.upload();
    QVERIFY(!trial.button("upload")->isEnabled());
    QTRY_VERIFY(trial.server.hasClient());
    QTest::keyClick(trial.form.get(), Qt::Key_U, Qt::AltModifier);
    trial.server.sayNow("220 Ready\r\n");
    QVERIFY(trial.ends());

    QCOMPARE(trial.server.sessions(), 1);
}

void tst_FtpForm::saveAsDuringATransferEnablesUploadOnlyAfterIt()
{
    Trial trial;
    trial.prepare();
    trial.server.say("STOR", {});
    trial.upload();
    QTRY_VERIFY(trial.server.hasClient());

    trial.saveAs(trial.home.filePath(u"other.bmp"_s));
    QVERIFY(!trial.button("upload")->isEnabled());

    const NextBox box = answer_next_box(QMessageBox::Ok);
    QTRY_VERIFY(trial.server.commands().last().startsWith("STOR"));
    trial.server.sayNow("553 Not allowed\r\n");
    QTRY_VERIFY(box.hasCome());
    QTRY_VERIFY(trial.button("upload")->isEnabled());
}

void tst_FtpForm::progressIsShownAndTellsWhereTheFileGoes()
{
    Trial trial(large_page());
    trial.prepare();
    trial.field("remotePath")->setText(u"/in/"_s);
    trial.field("user")->setText(u"bob"_s);
    trial.field("pass")->setText(u"secret"_s);
    trial.server.stopDataAfter(1000);
    const auto *const bar = trial.find<QProgressBar>("progress");

    trial.upload();
    QTRY_VERIFY(trial.server.dataCount() >= 1000);
    QTRY_VERIFY(bar->value() > 0);

    QVERIFY(bar->isVisible());
    QCOMPARE(bar->maximum(), static_cast<int>(QFileInfo(trial.filePath()).size()));
    QVERIFY(bar->value() < bar->maximum());
    QCOMPARE(trial.label("status"), u"Write: ftp://127.0.0.1:%1/in//scan #1.bmp"_s.arg(trial.server.port()));
    trial.server.takeData();
    QVERIFY(trial.ends());
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_FtpForm::reportsOfNothingLeftDoNotShowTheBar()
{
    const Trial trial;
    Q3NetworkOperation put(Q3NetworkOperation::OpPut, {}, nullptr);
    const DiagnosticLines lines;

    for (const int total : {0, 5, 7})
        QVERIFY(QMetaObject::invokeMethod(trial.form.get(), "slotRemoteDataTransferProgress", Q_ARG(int, 7),
                                          Q_ARG(int, total), Q_ARG(Q3NetworkOperation *, &put)));

    QVERIFY(!trial.find<QProgressBar>("progress")->isVisible());
    QCOMPARE(trial.label("status"), u"No Operation in Progress"_s);
    QCOMPARE(lines.lines(),
             QStringList(3, u"FtpForm::slotRemoteDataTransferProgress - transfer apparently finished"_s));
}

void tst_FtpForm::barWithNothingToGoThroughStandsStill()
{
    const Trial trial;
    Q3NetworkOperation get(Q3NetworkOperation::OpGet, {}, nullptr);
    auto *const bar = trial.find<QProgressBar>("progress");
    bar->show();

    run_slot(*trial.form, "slotRemoteStart", &get);

    QCOMPARE(bar->maximum(), 0);
    QTRY_VERIFY(bar->isVisible());
    const QImage before = bar->grab().toImage();
    QTest::qWait(300);
    QCOMPARE(bar->grab().toImage(), before);
}

void tst_FtpForm::lostOperationsAreNoted()
{
    const Trial trial;
    const DiagnosticLines lines;

    run_slot(*trial.form, "slotRemoteStart", nullptr);
    run_slot(*trial.form, "slotRemoteFinished", nullptr);
    QVERIFY(QMetaObject::invokeMethod(trial.form.get(), "slotRemoteDataTransferProgress", Q_ARG(int, 0), Q_ARG(int, 1),
                                      Q_ARG(Q3NetworkOperation *, nullptr)));

    QCOMPARE(
        lines.lines(),
        (QStringList{u"FtpForm::slotRemoteStart - bad operation!"_s, u" FtpForm::slotRemoteFinished - bad operation!"_s,
                     u"FtpForm::slotRemoteDataTransferProgress - bad operation!"_s}));
}

void tst_FtpForm::otherOperationsAreIgnored()
{
    const Trial trial;
    const DiagnosticLines lines;
    Q3NetworkOperation list(Q3NetworkOperation::OpListChildren, {}, nullptr);
    list.setState(Q3NetworkOperation::StDone);

    run_slot(*trial.form, "slotRemoteStart", &list);
    run_slot(*trial.form, "slotRemoteFinished", &list);
    QVERIFY(QMetaObject::invokeMethod(trial.form.get(), "slotRemoteDataTransferProgress", Q_ARG(int, 0), Q_ARG(int, 1),
                                      Q_ARG(Q3NetworkOperation *, &list)));

    QVERIFY(trial.form->isVisible());
    QCOMPARE(lines.lines(), QStringList(u"FtpForm::slotRemoteDataTransferProgress - unknown operation!"_s));
}

void tst_FtpForm::closingStopsTheTransfer_data()
{
    QTest::addColumn<QByteArray>("step"); // at which the server falls silent
    for (const char *step : {"greeting", "USER", "PASS", "TYPE", "PASV", "ALLO", "STOR", "end"})
        QTest::addRow("%s", step) << QByteArray(step);
}

void tst_FtpForm::closingStopsTheTransfer()
{
    QFETCH(const QByteArray, step);
    Trial trial;
    trial.prepare();
    trial.find<QCheckBox>("delete_file")->setChecked(true);
    trial.server.say(step, {});
    trial.upload();
    if (step == "greeting")
        QTRY_VERIFY(trial.server.hasClient());
    else if (step == "end")
        QTRY_VERIFY(trial.server.hasDataEnded());
    else
        QTRY_VERIFY(!trial.server.commands().isEmpty() && trial.server.commands().last().startsWith(step));

    trial.button("closeButton")->click();
    QVERIFY(!trial.form->isVisible());
    QCOMPARE(trial.form->result(), 0);
    trial.form.reset();

    QTRY_VERIFY(!trial.server.hasClient());
    QVERIFY(QFile::exists(trial.filePath()));
}

void tst_FtpForm::serversWordsAreShownAsTheyStand()
{
    Trial trial;
    trial.prepare();
    trial.server.say("STOR", "550 <b>No</b> &amp; never %1\r\n");
    const NextBox box = answer_next_box(QMessageBox::Ok);

    trial.upload();
    QTRY_VERIFY(box.hasCome());

    QCOMPARE(box.text(), u"Uploading file failed:\n<b>No</b> &amp; never %1"_s);
}

void tst_FtpForm::longTextsDoNotWidenTheForm()
{
    Trial trial;
    trial.prepare();
    trial.field("remotePath")->setText(u'/' + QString(511, u'y'));
    const int width = trial.form->minimumSizeHint().width();
    trial.server.say("end", {});

    trial.upload();
    QTRY_VERIFY(trial.label("status").size() > 512);

    QCOMPARE(trial.form->minimumSizeHint().width(), width);
}

void tst_FtpForm::credentialsStayOutOfLinesAndTexts()
{
    Trial trial;
    const DiagnosticLines lines;
    trial.prepare();
    trial.field("user")->setText(u"somebody"_s);
    trial.field("pass")->setText(u"topsecret"_s);
    trial.server.say("PASS", "500 'PASS topsecret' not understood\r\n");
    const NextBox box = answer_next_box(QMessageBox::Ok);

    trial.upload();
    QTRY_VERIFY(box.hasCome());

    const QStringList shown = lines.lines() + QStringList{box.text(), trial.label("status")};
    QVERIFY(!shown.join(u' ').contains(u"topsecret"_s));
    QVERIFY(!shown.join(u' ').contains(u"somebody"_s));
}

QTEST_MAIN(tst_FtpForm)
#include "tst_FtpForm.moc"

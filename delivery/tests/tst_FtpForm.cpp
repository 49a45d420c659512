// The form as it comes up, and its Save As.

#include "DiagnosticLines.h"
#include "NextBox.h"
#include "OpenFtpForm.h"

#include <QCheckBox>
#include <QLayout>
#include <QProgressBar>

using namespace Qt::StringLiterals;

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
};

void tst_FtpForm::beginsEmptyWithNothingToUpload()
{
    const OpenFtpForm trial;

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
    const OpenFtpForm trial;
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
    const OpenFtpForm trial;
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
    const OpenFtpForm trial;
    const auto *const port = trial.find<QSpinBox>("port");

    QCOMPARE(port->minimum(), 1);
    QCOMPARE(port->maximum(), 65535);
    QCOMPARE(port->minimumWidth(), 75);
}

void tst_FtpForm::goodSaveAsShowsThePathAndEnablesUpload()
{
    const OpenFtpForm trial;
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
    const OpenFtpForm trial;
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
    OpenFtpForm trial;
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
    const OpenFtpForm trial;
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

QTEST_MAIN(tst_FtpForm)
#include "tst_FtpForm.moc"

#include "DiagnosticLines.h"
#include "NextBox.h"
#include "NextFileDialog.h"
#include "OpenMailForm.h"

#include <QApplication>
#include <QClipboard>
#include <QSettings>

using namespace Qt::StringLiterals;

class tst_MailForm : public QObject
{
    Q_OBJECT

private slots:
    void theFormIsAsItIsWanted()
    {
        OpenMailForm mail;
        mail.open();

        QCOMPARE(mail.form->objectName(), u"MailForm"_s);
        QCOMPARE(mail.form->windowTitle(), u"Send Image By E-mail"_s);
        QCOMPARE(mail.form->size(), QSize(507, 452));
        QCOMPARE(mail.text("label"), u"Server:"_s);
        QCOMPARE(mail.text("label_login"), u"Login:"_s);
        QCOMPARE(mail.text("label_2"), u"Port:"_s);
        QCOMPARE(mail.text("label_password"), u"Password:"_s);
        QCOMPARE(mail.text("from_label"), u"From:"_s);
        QCOMPARE(mail.text("to_label"), u"To:"_s);
        QCOMPARE(mail.text("subject_label"), u"Subject:"_s);
        QCOMPARE(mail.button("attach_as")->text(), u"Save As..."_s);
        QCOMPARE(mail.widget<QCheckBox>("delete_file")->text(), u"Delete After Send"_s);
        QCOMPARE(mail.button("send")->text(), u"Send"_s);
        QVERIFY(mail.button("send")->isDefault());
        QCOMPARE(mail.button("close")->text(), u"Close"_s);
        QCOMPARE(mail.button("help")->text(), u"Help"_s);
        QCOMPARE(mail.field("password")->echoMode(), QLineEdit::Password);
        QCOMPARE(mail.field("login")->echoMode(), QLineEdit::Normal);
    }

    void everyControlHasAName()
    {
        OpenMailForm mail;
        mail.open();

        for (const char *const name : {"server", "login", "port", "password", "from", "to", "subject"})
            QVERIFY2(!mail.field(name)->accessibleName().isEmpty(), name);
        QVERIFY(!mail.widget<QPlainTextEdit>("message")->accessibleName().isEmpty());
    }

    void aSavedDocumentCanBeSentAtOnce()
    {
        OpenMailForm mail;
        mail.open();

        QVERIFY(mail.button("send")->isEnabled());
        QCOMPARE(mail.field("subject")->text(), u"scan.png"_s);
        QCOMPARE(mail.text("attachment"), mail.path);
        QCOMPARE(mail.text("sendStatus"), u"No Operation in Progress"_s);
    }

    void aModifiedDocumentHasToBeSavedFirst()
    {
        OpenMailForm mail({}, true);
        mail.open();

        QVERIFY(!mail.button("send")->isEnabled());
        QVERIFY(mail.field("subject")->text().isEmpty());
        QVERIFY(mail.text("attachment").isEmpty());
        QCOMPARE(mail.text("sendStatus"), u"Image must be saved before sending"_s);
    }

    void aDocumentWithoutAFileHasNoAttachment()
    {
        OpenMailForm mail(u"./Untitled2"_s);
        mail.openFilledIn();
        QVERIFY(mail.button("send")->isEnabled());
        QVERIFY(mail.text("attachment").isEmpty());
        QCOMPARE(mail.field("subject")->text(), u"Untitled2"_s);
        const NextBox box(QMessageBox::Ok);

        mail.button("send")->click();

        QVERIFY(box.text().startsWith(u"Please select the name and type for the image file\n"_s));
    }

    void wrongInputIsToldInThisOrder_data()
    {
        QTest::addColumn<QString>("port");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("subject");
        QTest::addColumn<QString>("attachment");
        QTest::addColumn<QString>("text");

        const QString good = u"a@b.cd"_s;
        const QString file = u"/a/b.png"_s;
        const QString portText = u"\"Port\" should contain a number between 0 and 65535.\nExample:\n25"_s;
        const QString fromText = u"\"From\" should contain your return e-mail address.\nExample:\n"_s;
        const QString toText = u"\"To\" should contain the mail recipient e-mail address.\nExample:\n"_s;
        const QString subjectText = u"\"Subject\" should be a string 1..250 characters long.\n"_s;
        const QString fileText = u"Please select the name and type for the image file\n"
                                 "being attached to this message.\nUse the button \"Attach as...\""_s;
        QTest::newRow("port first") << u"65536"_s << QString() << QString() << QString() << QString() << portText;
        QTest::newRow("port of five nines") << u"99999"_s << good << good << u"s"_s << file << portText;
        QTest::newRow("then from") << u"65535"_s << QString() << QString() << QString() << QString() << fromText;
        QTest::newRow("no domain") << u"25"_s << u"ann"_s << good << u"s"_s << file << fromText;
        QTest::newRow("no dot in the domain") << u"25"_s << u"ann@host"_s << good << u"s"_s << file << fromText;
        QTest::newRow("two @") << u"25"_s << u"a@b@c.de"_s << good << u"s"_s << file << fromText;
        QTest::newRow("a blank behind it") << u"25"_s << u"a@b.cd "_s << good << u"s"_s << file << fromText;
        QTest::newRow("a dot at the end") << u"25"_s << u"a@b.cd."_s << good << u"s"_s << file << fromText;
        QTest::newRow("then to") << QString() << good << QString() << QString() << QString() << toText;
        QTest::newRow("to with a quote") << u"0"_s << good << u"\"b\"@c.de"_s << u"s"_s << file << toText;
        QTest::newRow("then subject") << u"25x"_s << good << good << QString() << QString() << subjectText;
        QTest::newRow("a subject of 251") << u"25"_s << good << good << QString(251, u's') << file << subjectText;
        QTest::newRow("then attachment") << u"25"_s << good << good << QString(250, u's') << QString() << fileText;
        QTest::newRow("letters of any script, dots and signs")
            << u"25"_s << u"j\u00f6rg-a.b+c@m\u00fcller.x-y.de"_s << u"a_b@c.d.ef"_s << u"s"_s << QString() << fileText;
        QTest::newRow("an accent of its own")
            << u"25"_s << u"jose\u0301@b.cd"_s << good << u"s"_s << QString() << fileText;
    }
    void wrongInputIsToldInThisOrder()
    {
        QFETCH(const QString, port);
        QFETCH(const QString, from);
        QFETCH(const QString, to);
        QFETCH(const QString, subject);
        QFETCH(const QString, attachment);
        QFETCH(const QString, text);
        OpenMailForm mail;
        mail.open();
        mail.field("port")->setText(port);
        mail.field("from")->setText(from);
        mail.field("to")->setText(to);
        mail.field("subject")->setText(subject);
        mail.widget<QLabel>("attachment")->setText(attachment);
        const NextBox box(QMessageBox::Ok);

        mail.button("send")->click();

        QCOMPARE(box.title(), u"Invalid input"_s);
        QVERIFY2(box.text().startsWith(text), qPrintable(box.text()));
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        const bool hasSample = text == fromText() || text == toText();
        QCOMPARE(box.text().size() > text.size(), hasSample);
        QVERIFY(mail.button("send")->isEnabled());
        QCOMPARE(mail.text("sendStatus"), u"No Operation in Progress"_s);
    }

    void fieldsTakeNoMoreThanTheirPatterns_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("taken");

        QTest::newRow("port: five figures") << u"port"_s << u"123456"_s << u"12345"_s;
        QTest::newRow("port: figures alone") << u"port"_s << u"2x5 -"_s << u"25"_s;
        QTest::newRow("subject: any character") << u"subject"_s << u"a% b<"_s << u"a% b<"_s;
        QTest::newRow("login: without an end") << u"login"_s << QString(600, u'l') << QString(600, u'l');
    }
    void fieldsTakeNoMoreThanTheirPatterns()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, typed);
        QFETCH(const QString, taken);
        OpenMailForm mail;
        mail.open();
        QLineEdit *const field = mail.field(name.toLatin1().constData());
        field->clear();

        QTest::keyClicks(field, typed);

        QCOMPARE(field->text(), taken);
    }

    void longFieldsTake512Characters_data()
    {
        QTest::addColumn<QString>("name");

        for (const char *const name : {"from", "to", "subject", "server"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void longFieldsTake512Characters()
    {
        QFETCH(const QString, name);
        OpenMailForm mail;
        mail.open();
        QLineEdit *const field = mail.field(name.toLatin1().constData());
        field->setText(QString(511, u'x'));

        QTest::keyClicks(field, u"yz"_s);

        QCOMPARE(field->text(), QString(511, u'x') + u'y');
    }

    void savingGivesTheDocumentItsNewFile()
    {
        OpenMailForm mail({}, true);
        mail.open();
        const QString target = mail.home.filePath(u"new.bmp"_s);
        const NextFileDialog user([&](QFileDialog &dialog) {
            dialog.selectNameFilter(dialog.nameFilters().filter(u"*.bmp"_s).value(0));
            NextFileDialog::accept(dialog, target);
        });

        mail.button("attach_as")->click();

        QVERIFY(compare_pictures(QImage(target).convertToFormat(mail.page.format()), mail.page));
        QCOMPARE(mail.text("attachment"), target);
        QCOMPARE(mail.document->filePath(), target);
        QCOMPARE(mail.document->imgFormat(), u"bmp"_s);
        QVERIFY(!mail.document->isModified());
        QCOMPARE(mail.field("subject")->text(), u"new.bmp"_s);
        QVERIFY(mail.button("send")->isEnabled());
        QCOMPARE(mail.text("sendStatus"), u"No Operation in Progress"_s);
    }

    void savingForDeletionLeavesTheDocumentAlone()
    {
        OpenMailForm mail({}, true);
        mail.open();
        mail.widget<QCheckBox>("delete_file")->setChecked(true);
        const QString target = mail.home.filePath(u"new.png"_s);
        const NextFileDialog user([&](QFileDialog &dialog) { NextFileDialog::accept(dialog, target); });

        mail.button("attach_as")->click();

        QCOMPARE(mail.text("attachment"), target);
        QCOMPARE(mail.document->filePath(), mail.path);
        QVERIFY(mail.document->isModified());
        QCOMPARE(mail.field("subject")->text(), u"scan.png"_s);
        QVERIFY(mail.button("send")->isEnabled());
    }

    void aCancelledSaveChangesNothing()
    {
        OpenMailForm mail({}, true);
        mail.open();
        DiagnosticLines diagnostics;
        const NextFileDialog user([](QFileDialog &dialog) { dialog.reject(); });

        mail.button("attach_as")->click();

        QVERIFY(diagnostics.contains(u"MailForm::onAttachAs - dialog canceled or failed"_s));
        QVERIFY(!mail.button("send")->isEnabled());
        QVERIFY(mail.document->isModified());
        QCOMPARE(mail.text("sendStatus"), u"Image must be saved before sending"_s);
    }

    void aFailedSaveStillEnablesSendAndGivesTheDocumentTheName()
    {
        OpenMailForm mail({}, true);
        mail.page = QImage(); // there is nothing to write
        mail.open();
        const QString target = mail.home.filePath(u"new.png"_s);
        DiagnosticLines diagnostics;
        const NextBox box(QMessageBox::Ok);
        const NextFileDialog user([&](QFileDialog &dialog) { NextFileDialog::accept(dialog, target); });

        mail.button("attach_as")->click();

        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving file"_s);
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        QVERIFY(diagnostics.contains(u"MailForm::onAttachAs - save(%1) failed!"_s.arg(target)));
        QVERIFY(mail.button("send")->isEnabled());
        QVERIFY(mail.text("attachment").isEmpty()); // so Send tells that one is missing
        QCOMPARE(mail.document->filePath(), target);
        QVERIFY(!mail.document->isModified());
        QCOMPARE(mail.field("subject")->text(), u"new.png"_s);
    }

    void savingWithoutADocumentChangesTheAttachmentAlone()
    {
        OpenMailForm mail;
        mail.open();
        mail.document.reset();
        const QString target = mail.home.filePath(u"new.png"_s);
        const NextFileDialog user([&](QFileDialog &dialog) { NextFileDialog::accept(dialog, target); });

        mail.button("attach_as")->click();

        QCOMPARE(mail.text("attachment"), target);
        QCOMPARE(mail.field("subject")->text(), u"scan.png"_s);
    }

    void withoutADocumentThereIsNothingToSend()
    {
        OpenMailForm mail;
        mail.document.reset();

        mail.open();

        QVERIFY(!mail.button("send")->isEnabled());
    }

    void aNameThatLooksLikeMarkupIsShownAsItIs()
    {
        OpenMailForm mail(u"/nowhere/<b>scan</b>.png"_s);
        mail.open();

        QCOMPARE(mail.widget<QLabel>("attachment")->textFormat(), Qt::PlainText);
        QCOMPARE(mail.text("attachment"), u"/nowhere/<b>scan</b>.png"_s);
    }

    void theCloseButtonClosesTheForm()
    {
        OpenMailForm mail;
        mail.open();

        mail.button("close")->click();

        QVERIFY(!mail.form->isVisible());
    }

private:
    static QString fromText() { return u"\"From\" should contain your return e-mail address.\nExample:\n"_s; }
    static QString toText() { return u"\"To\" should contain the mail recipient e-mail address.\nExample:\n"_s; }
};

QTEST_MAIN(tst_MailForm)
#include "tst_MailForm.moc"

#include "DiagnosticLines.h"
#include "MailForm.h"
#include "NameServer.h"
#include "NextBox.h"
#include "NextDialog.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QByteArrayList goodSession{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};

void fill_in(const QDialog &form)
{
    form.findChild<QLineEdit *>(u"server"_s)->setText(u"127.0.0.2"_s);
    form.findChild<QLineEdit *>(u"from"_s)->setText(u"ann@example.test"_s);
    form.findChild<QLineEdit *>(u"to"_s)->setText(u"bob@nowhere.test"_s);
}

QString text_of(const QDialog &form, const QString &label)
{
    return form.findChild<QLabel *>(label)->text();
}

/// Sends with Delete After Send, waits for the end and closes the form.
bool send_and_delete(const QDialog &form)
{
    fill_in(form);
    form.findChild<QCheckBox *>(u"delete_file"_s)->setChecked(true);
    form.findChild<QPushButton *>(u"send"_s)->click();
    return QTest::qWaitFor([&form] { return form.findChild<QPushButton *>(u"send"_s)->isEnabled(); });
}

} // namespace

class tst_ImageManager_send : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { names = std::make_unique<NameServer>(QStringList()); }
    void cleanupTestCase() { names.reset(); }

    void theFormIsAboutTheFileOfTheTab()
    {
        WindowFixture at(u"scan.png"_s);
        const NextDialog dialog([&](QDialog &form) {
            QVERIFY(qobject_cast<MailForm *>(&form));
            QCOMPARE(text_of(form, u"attachment"_s), at.home.filePath(u"scan.png"_s));
            form.close();
        });

        at.action(u"tool_send"_s)->trigger();
    }

    void withoutATabThereIsNoForm()
    {
        WindowFixture at;

        at.window.send(); // a dialog would keep the test waiting

        QVERIFY(!at.enabled(u"tool_send"_s));
    }

    void aTemporaryDocumentHasNoAttachment()
    {
        WindowFixture at;
        QVERIFY(at.window.load_file(at.file(u"scan.png"_s), {}, true));
        const NextDialog dialog([&](QDialog &form) {
            QVERIFY(text_of(form, u"attachment"_s).isEmpty());
            fill_in(form);
            const NextBox box(QMessageBox::Ok);
            form.findChild<QPushButton *>(u"send"_s)->click();
            QVERIFY(box.text().contains(u"\"Attach as...\""_s));
            form.close();
        });

        at.window.send();
    }

    void deleteAfterSendMayCloseTheLastTab()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        WindowFixture at(u"scan.png"_s);
        bool isSent = false;
        const NextDialog dialog([&](QDialog &form) {
            isSent = send_and_delete(form);
            form.close();
        });

        at.window.send();

        QVERIFY(isSent);
        QCOMPARE(at.tabs()->count(), 0);
        QVERIFY(!QFile::exists(at.home.filePath(u"scan.png"_s)));
        QVERIFY(!at.enabled(u"tool_send"_s));
        QVERIFY(at.window.isVisible());
    }

    void anotherSendAfterTheLastTabHasGoneDoesNoHarm()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        WindowFixture at(u"scan.png"_s);
        QString status;
        const NextDialog dialog([&](QDialog &form) {
            QVERIFY(send_and_delete(form));
            form.findChild<QPushButton *>(u"send"_s)->click(); // the file has gone
            status = text_of(form, u"sendStatus"_s);
            form.close();
        });

        at.window.send();

        QCOMPARE(status, u"Looking up mail servers"_s);
        QCOMPARE(at.tabs()->count(), 0);
    }

    void aFileThatAnotherStartOpensMeanwhileIsNotTheOneThatIsClosed()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        WindowFixture at(u"scan.png"_s);
        const QString other = at.file(u"other.png"_s);
        const NextDialog dialog([&](QDialog &form) {
            QVERIFY(at.window.load_file(other, {}, false));
            QVERIFY(send_and_delete(form));
            form.close();
        });

        at.window.send();

        QCOMPARE(at.titles(), QStringList{u"other.png"_s});
        QVERIFY(QFile::exists(other));
        QVERIFY(!QFile::exists(at.home.filePath(u"scan.png"_s)));
    }

    void aDocumentThatWasChangedMeanwhileIsAskedAbout()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        WindowFixture at(u"scan.png"_s);
        std::optional<NextBox> box;
        const NextDialog dialog([&](QDialog &form) {
            at.currentView()->document()->setModified(true);
            box.emplace(QMessageBox::Cancel);
            QVERIFY(send_and_delete(form));
            QVERIFY(QTest::qWaitFor([&] { return box->hasCome() && QApplication::activeModalWidget() == &form; }));
            form.close();
        });

        at.window.send();

        QCOMPARE(at.tabs()->count(), 1); // Cancel keeps the tab; the file goes all the same
        QVERIFY(!QFile::exists(at.home.filePath(u"scan.png"_s)));
    }

    void aClosedFormLeavesTheTabInFront()
    {
        WindowFixture at(u"a.png"_s);
        QVERIFY(at.open(u"b.png"_s));
        at.tabs()->setCurrentIndex(0);
        const QString other = at.file(u"c.png"_s);
        const NextDialog dialog([&](QDialog &form) {
            QVERIFY(at.window.load_file(other, {}, false));
            form.close();
        });

        at.window.send();

        QCOMPARE(at.tabs()->currentIndex(), 0);
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QApplication, tst_ImageManager_send, leave_common_network)
#include "tst_ImageManager_send.moc"

#include "end_signals.h"
#include "files.h"
#include "FtpFormOnShow.h"
#include "FtpServer.h"
#include "lost_display.h"
#include "private_namespaces.h"
#include "StalledUpload.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

// The upload as a user makes it, with the keyboard, to port 21 of a network that this program and the one under test
// have to themselves.

class tst_upload : public QObject
{
    Q_OBJECT

private slots:
    void everyControlHasAName();
    void pageIsUploadedByTheKeyboard();
    void refusalIsShownAndItsBoxMayBeClosedByTheWindowManager();
    void stalledUploadShowsItsProgressAndIsClosed();
    void signalDuringAnUploadEndsIt_data();
    void signalDuringAnUploadEndsIt();
    void displayThatGoesDuringAnUploadEndsIt();
};

void tst_upload::everyControlHasAName()
{
    FtpFormOnShow shown;
    QVERIFY(shown.isReady);

    QVERIFY2(shown.namelessControls().isEmpty(), qPrintable(shown.form().tree()));
}

void tst_upload::pageIsUploadedByTheKeyboard()
{
    FtpServer server(QHostAddress(QHostAddress::LocalHost), 21);
    FtpFormOnShow shown;
    QVERIFY(shown.isReady);

    shown.type(u"127.0.0.1"_s);
    QVERIFY(shown.saveAs(u"sent.png"_s));
    shown.press("u", {"Alt_L"});
    QVERIFY(QTest::qWaitFor([&] { return !shown.isOpen(); }, Program::patienceMs));

    QCOMPARE(server.data(), file_bytes(shown.savedFile(u"sent.png"_s)));
    QCOMPARE(server.commands().last(), QByteArray("STOR /sent.png"));
    QCOMPARE(shown.program.close(), 0);
}

void tst_upload::refusalIsShownAndItsBoxMayBeClosedByTheWindowManager()
{
    FtpServer server(QHostAddress(QHostAddress::LocalHost), 21);
    server.say("STOR", "553-This is not the place\r\n553 for <pictures>\r\n");
    FtpFormOnShow shown;
    QVERIFY(shown.isReady);
    shown.type(u"127.0.0.1"_s);
    QVERIFY(shown.saveAs(u"sent.png"_s));

    shown.press("u", {"Alt_L"});
    QVERIFY(QTest::qWaitFor([&] { return shown.activeTitle() == "ERROR"_L1; }, Program::patienceMs));
    const QString words = u"Uploading file failed:\nThis is not the place\nfor <pictures>"_s;
    QVERIFY2(!shown.program.application().find(Role::Label, words).isNull(),
             qPrintable(shown.program.application().tree()));
    shown.program.desktop().close(shown.program.process().waitForWindow(u"ERROR"_s));

    QVERIFY(QTest::qWaitFor([&] { return shown.activeTitle() == shown.formTitle; }, Program::patienceMs));
    QVERIFY(!shown.control(Role::Button, u"Upload"_s).has(State::Enabled));
    QVERIFY(QFile::exists(shown.savedFile(u"sent.png"_s)));
    shown.press("Escape");
    QVERIFY(QTest::qWaitFor([&] { return !shown.isOpen(); }, Program::patienceMs));
    QCOMPARE(shown.program.close(), 0);
}

void tst_upload::stalledUploadShowsItsProgressAndIsClosed()
{
    FtpServer server(QHostAddress(QHostAddress::LocalHost), 21);
    server.stopDataAfter(1000);
    FtpFormOnShow shown(patterned_page({3000, 3000}));
    QVERIFY(shown.isReady);
    shown.type(u"127.0.0.1"_s);
    QVERIFY(shown.saveAs(u"sent.bmp"_s));

    shown.press("u", {"Alt_L"});
    const auto status = [&shown] { return shown.control(Role::Label, u"Write: ftp://127.0.0.1:21//sent.bmp"_s); };
    QVERIFY(QTest::qWaitFor([&] { return server.dataCount() > 0 && !status().isNull(); }, Program::patienceMs));
    QVERIFY(!shown.control(Role::Button, u"Upload"_s).has(State::Enabled));
    shown.click(shown.control(Role::Button, u"Close"_s));

    QVERIFY(QTest::qWaitFor([&] { return !shown.isOpen() && !server.hasClient(); }, Program::patienceMs));
    QVERIFY(QFile::exists(shown.savedFile(u"sent.bmp"_s)));
    QCOMPARE(shown.program.close(), 0);
}

void tst_upload::signalDuringAnUploadEndsIt_data()
{
    add_end_signals();
}

void tst_upload::signalDuringAnUploadEndsIt()
{
    QFETCH(const int, number);
    StalledUpload upload;
    QVERIFY(upload.isStalled);

    ::kill(static_cast<pid_t>(upload.process().processId()), number);

    QCOMPARE(upload.process().waitForEndBySignal(), number);
    QVERIFY(upload.hasEnded());
}

void tst_upload::displayThatGoesDuringAnUploadEndsIt()
{
    StalledUpload upload;
    QVERIFY(upload.isStalled);

    lose_display_of(upload.shown.program.window());

    QCOMPARE(upload.process().waitForExit(), 1);
    QVERIFY(upload.hasEnded());
}

TEST_MAIN_APART(QCoreApplication, tst_upload, leave_common_network)
#include "tst_upload.moc"

#include "FtpFormOnShow.h"
#include "FtpServer.h"
#include "image_files.h"
#include "noise_pages.h"
#include "private_namespaces.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

// Servers that reset a connection, never end a line, or are slow, while the built program uploads a page.

namespace {

constexpr qint64 Mebibyte = qint64{1024} * 1024;

/// A server, and the form with its name filled in.
class Upload
{
public:
    explicit Upload(const QImage &picture = patterned_page({100, 80})) :
        server(QHostAddress(QHostAddress::LocalHost), 21),
        shown(picture)
    {
        if (!shown.isReady)
            return;
        shown.type(u"127.0.0.1"_s);
        isReady = shown.saveAs(u"sent.bmp"_s);
    }

    void begin() { shown.press("u", {"Alt_L"}); }

    /// Waits for the box of a failure, closes it and answers what it said; nothing if none came.
    [[nodiscard]] QString failure()
    {
        const auto isTold = [this] { return shown.activeTitle() == "ERROR"_L1; };
        if (!QTest::qWaitFor(isTold, Program::patienceMs))
            return {};
        QString words;
        const QList<Accessible> labels = shown.dialog(u"ERROR"_s).findAll(Role::Label);
        for (const Accessible &label : labels)
            words += label.name();
        shown.press("Return");
        const bool hasGone =
            QTest::qWaitFor([this] { return shown.activeTitle() == shown.formTitle; }, Program::patienceMs);
        return hasGone ? words : QString();
    }

    /// Whether the file is there and another upload may follow once it is saved again.
    [[nodiscard]] bool isOver()
    {
        return QFile::exists(shown.savedFile(u"sent.bmp"_s)) && !server.hasClient()
            && !shown.control(Role::Button, u"Upload"_s).has(State::Enabled);
    }

    FtpServer server;
    FtpFormOnShow shown;
    bool isReady = false;
};

} // namespace

class tst_upload_faults : public QObject
{
    Q_OBJECT

private slots:
    void resetOfTheControlConnectionIsToldAtAnyStep()
    {
        const QList<std::pair<QByteArray, QString>> steps{{"greeting", u"Connecting to host failed:\n"_s},
                                                          {"USER", u"Login failed:\n"_s},
                                                          {"PASS", u"Login failed:\n"_s},
                                                          {"TYPE", u"Uploading file failed:\n"_s},
                                                          {"PASV", u"Uploading file failed:\n"_s},
                                                          {"ALLO", u"Uploading file failed:\n"_s},
                                                          {"STOR", u"Uploading file failed:\n"_s},
                                                          {"end", u"Uploading file failed:\n"_s}};
        Upload upload;
        QVERIFY(upload.isReady);

        for (const auto &[step, beginning] : steps) {
            upload.server.resetAt(step);
            upload.begin();

            const QString words = upload.failure();

            if (step == "greeting") // it may be lost ere it counts as a connection
                QVERIFY2(words.startsWith(beginning), qPrintable(words));
            else
                QCOMPARE(words, QString(beginning + "Connection to 127.0.0.1 closed"_L1));
            QVERIFY2(upload.isOver(), step.constData());
            QVERIFY(upload.shown.saveAs(QString::fromLatin1(step).toLower() + ".bmp"_L1));
        }
        upload.server.resetAt({});
        upload.begin();
        QTRY_VERIFY_WITH_TIMEOUT(!upload.shown.isOpen(), Program::patienceMs); // all is well
        QCOMPARE(upload.shown.program.close(), 0);
    }

    void resetOfTheDataConnectionIsToldInTheServersWords()
    {
        Upload upload(noise_page({1500, 1000})); // of which no network holds all
        QVERIFY(upload.isReady);
        upload.server.resetDataAfter(100000);
        upload.server.say("end", "426 Lost\r\n");

        upload.begin();

        QCOMPARE(upload.failure(), u"Uploading file failed:\nLost"_s);
        QTRY_VERIFY_WITH_TIMEOUT(upload.isOver(), Program::patienceMs);
        QVERIFY(upload.shown.close());
        QCOMPARE(upload.shown.program.close(), 0);
    }

    void lineOfAGibibyteIsPassedOverAndTakesNoMemory()
    {
        Upload upload;
        QVERIFY(upload.isReady);
        const qint64 process = upload.shown.program.process().processId();
        const qint64 peakBefore = peak_memory(process);
        upload.server.say("greeting", {});
        upload.begin();
        QTRY_VERIFY_WITH_TIMEOUT(upload.server.hasClient(), Program::patienceMs);

        const EndlessLine *const line = upload.server.sayEndlessLine(1024 * Mebibyte);

        QTRY_VERIFY_WITH_TIMEOUT(line->isOut(), Program::patienceMs);
        upload.server.sayNow("\r\n");
        const QString words = upload.failure();
        QVERIFY2(words.startsWith("Connecting to host failed:\nxxx"_L1), qPrintable(words.left(100)));
        QVERIFY2(words.size() < 10000, qPrintable(QString::number(words.size())));
        const qint64 grown = peak_memory(process) - peakBefore;
        QVERIFY2(grown < 64 * Mebibyte * MeasureAllowance, qPrintable(QString::number(grown)));
        QTRY_VERIFY_WITH_TIMEOUT(upload.isOver(), Program::patienceMs);
        QVERIFY(upload.shown.close());
        QCOMPARE(upload.shown.program.close(), 0);
    }

    void pageGoesToAServerThatSaysEachByteAlone()
    {
        Upload upload;
        QVERIFY(upload.isReady);
        upload.server.sayByteByByte();
        upload.server.say("greeting", "220-Welcome\r\n 220 is not it\r\n220 Ready\r\n");

        upload.begin();

        QTRY_VERIFY_WITH_TIMEOUT(!upload.shown.isOpen(), Program::patienceMs);
        QFile file(upload.shown.savedFile(u"sent.bmp"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(upload.server.data(), file.readAll());
        QCOMPARE(upload.server.commands().last(), "STOR /sent.bmp"_ba);
        QCOMPARE(upload.shown.program.close(), 0);
    }
};

TEST_MAIN_APART(QCoreApplication, tst_upload_faults, leave_common_network)
#include "tst_upload_faults.moc"

#include "mail_message.h"

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <clocale>
#include <sstream>
#include <streambuf>

using namespace Qt::StringLiterals;

namespace {

constexpr std::time_t noon = 1163332800; // Sunday, 12 November 2006, 12:00:00 UTC

/// A letter with something of everything, sent at noon.
const MailContent letter{.from = u"ann@example.test"_s,
                         .to = u"bob@example.test"_s,
                         .subject = u"scan.png"_s,
                         .body = u"Hello\n\n.\nBye"_s,
                         .attachmentPath = u"/home/ann/scan.png"_s};

QString composed(const MailContent &content, const std::string &bytes = "ABC")
{
    std::istringstream attachment(bytes);
    return compose_message(content, attachment, noon);
}

/// The lines of the attachment, each with its end, as they stand between the headers and the last boundary.
QString attachment_lines(const std::string &bytes)
{
    const QString message = composed(letter, bytes);
    const QString headersEnd = u"\tfilename=\"scan.png\"\r\n\r\n"_s;
    const qsizetype begin = message.indexOf(headersEnd) + headersEnd.size();
    const qsizetype end = message.lastIndexOf(u"\r\n\r\n--NextPart_KOLMA_Boundary.7976494--\r\n."_s);
    return message.mid(begin, end - begin);
}

/// So many bytes, the same at every 251st place.
std::string bytes_of(size_t count)
{
    std::string bytes(count, '\0');
    for (size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<char>(i % 251);
    return bytes;
}

/// Lines of 80 characters by the toolkit's own coder, and one for the end of the file.
QString plain_lines(const std::string &bytes)
{
    const QByteArray all = QByteArray::fromStdString(bytes).toBase64();
    QString lines;
    for (qsizetype i = 0; i + 80 <= all.size() && (i / 80 + 1) * 60 <= qsizetype(bytes.size()); i += 80)
        lines += QString::fromLatin1(all.mid(i, 80)) + u"\r\n"_s;
    const qsizetype whole = qsizetype(bytes.size()) / 60 * 80;
    return lines + QString::fromLatin1(all.mid(whole)) + u"\r\n"_s;
}

/// Hands its bytes out and then fails, as a disk does.
class FailingBuffer : public std::streambuf
{
public:
    explicit FailingBuffer(std::string bytes) : m_bytes(std::move(bytes))
    {
        setg(m_bytes.data(), m_bytes.data(), m_bytes.data() + m_bytes.size());
    }

protected:
    int_type underflow() override { throw std::ios_base::failure("read error"); }

private:
    std::string m_bytes;
};

} // namespace

class tst_mail_message : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("TZ", "UTC");
        tzset();
    }

    void aWholeMessageIsAsItIsWanted()
    {
        const QString expected =
            u"Return-Path: <ann@example.test>\r\n"
            "From: <ann@example.test>\r\n"
            "To: <bob@example.test>\r\n"
            "Subject: scan.png\r\n"
            "Date: Sun, 12 Nov 2006 12:00:00 +0000\r\n"
            "X-Mailer: Varden frontend\r\n"
            "Mime-Version: 1.0\r\n"
            "Content-Type: multipart/mixed;\r\n"
            "  boundary=\"NextPart_KOLMA_Boundary.7976494\"\r\n"
            "\r\n"
            "This is a multi-part message in MIME format.\r\n"
            "If the remainder of this message appears as random characters in the message body,\r\n"
            "instead of as attachments, then your mail reader doesn't support MIME correctly.\r\n"
            "You'll have to extract message parts and decode them manually.\r\n"
            "\r\n"
            "--NextPart_KOLMA_Boundary.7976494\r\n"
            "Content-Type: text/plain;\r\n"
            " name=\"message.txt\";\r\n"
            " charset=US-ASCII\r\n"
            "Content-Transfer-Encoding: 7bit\r\n"
            "Content-Disposition: inline; filename=\"message.txt\"\r\n"
            "\r\n"
            "Hello\r\n"
            "\r\n"
            ".\r\n"
            "Bye\r\n"
            "\r\n"
            "--NextPart_KOLMA_Boundary.7976494\r\n"
            "Content-Type: image/x-png;\r\n"
            "\tname=\"scan.png\"\r\n"
            "Content-Transfer-Encoding: base64\r\n"
            "Content-Disposition: attachment;\r\n"
            "\tfilename=\"scan.png\"\r\n"
            "\r\n"
            "QUJD\r\n"
            "\r\n"
            "\r\n"
            "--NextPart_KOLMA_Boundary.7976494--\r\n"
            "."_s;

        QCOMPARE(composed(letter), expected);
    }

    void linesOfTheAttachmentHoldSixtyBytes_data()
    {
        QTest::addColumn<int>("size");

        for (const int size : {1, 2, 3, 59, 60, 61, 119, 120, 121, 61440, 100003})
            QTest::addRow("%d bytes", size) << size;
    }
    void linesOfTheAttachmentHoldSixtyBytes()
    {
        QFETCH(const int, size);
        const std::string bytes = bytes_of(static_cast<size_t>(size));

        QCOMPARE(attachment_lines(bytes), plain_lines(bytes));
    }

    void aMultipleOfSixtyBytesIsFollowedByAnEmptyLine_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QList<int>>("lengths");

        QTest::newRow("empty") << 0 << QList<int>{0};
        QTest::newRow("one line") << 60 << QList<int>{80, 0};
        QTest::newRow("two lines") << 120 << QList<int>{80, 80, 0};
        QTest::newRow("a byte less") << 59 << QList<int>{80};
        QTest::newRow("a byte more") << 61 << QList<int>{80, 4};
    }
    void aMultipleOfSixtyBytesIsFollowedByAnEmptyLine()
    {
        QFETCH(const int, size);
        QFETCH(const QList<int>, lengths);

        const QString lines = attachment_lines(bytes_of(static_cast<size_t>(size)));

        QVERIFY(lines.endsWith(u"\r\n"_s));
        QList<int> found;
        for (const QString &line : lines.chopped(2).split(u"\r\n"_s))
            found.append(static_cast<int>(line.size()));
        QCOMPARE(found, lengths);
    }

    void aSingleByteIsALineOfFourCharacters() { QCOMPARE(attachment_lines("A"), u"QQ==\r\n"_s); }

    void aReadErrorEndsTheAttachmentAsItsEndDoes()
    {
        FailingBuffer buffer(bytes_of(130));
        std::istream attachment(&buffer);

        const QString message = compose_message(letter, attachment, noon);

        QString whole = plain_lines(bytes_of(120)); // the rest of the third line is lost with the read that fails
        QVERIFY(message.contains(u"\tfilename=\"scan.png\"\r\n\r\n"_s + whole
                                 + u"\r\n\r\n--NextPart_KOLMA_Boundary.7976494--\r\n."_s));
    }

    void theTypeOfTheAttachmentIsTheSuffixAsItIsWritten_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("name");

        QTest::newRow("capitals") << u"/a/b/PAGE.TIF"_s << u"image/x-TIF"_s << u"PAGE.TIF"_s;
        QTest::newRow("no suffix") << u"/a/b/page"_s << u"image/x-"_s << u"page"_s;
        QTest::newRow("two dots") << u"/a/b.c/page.tar.gz"_s << u"image/x-gz"_s << u"page.tar.gz"_s;
        QTest::newRow("a dot at the end") << u"/a/page."_s << u"image/x-"_s << u"page."_s;
        QTest::newRow("hidden file") << u"/a/.png"_s << u"image/x-png"_s << u".png"_s;
        QTest::newRow("quotes stand as they are")
            << u"/a/my \"page\".png"_s << u"image/x-png"_s << u"my \"page\".png"_s;
        QTest::newRow("not ASCII") << u"/a/Grüße.png"_s << u"image/x-png"_s << u"Grüße.png"_s;
    }
    void theTypeOfTheAttachmentIsTheSuffixAsItIsWritten()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, type);
        QFETCH(const QString, name);
        MailContent content = letter;
        content.attachmentPath = path;

        const QString headers = u"Content-Type: "_s + type + u";\r\n\tname=\""_s + name
            + u"\"\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment;\r\n\tfilename=\""_s + name
            + u"\"\r\n\r\n"_s;
        QVERIFY(composed(content).contains(headers));
    }

    void aPlaceMarkerInTheSuffixTakesTheFileNameIn()
    {
        MailContent content = letter;
        content.attachmentPath = u"/a/page.x%2y"_s;

        // The second step fills both places that hold "%2" by then, the suffix and the name. What it fills in holds
        // that marker again, so the third step takes these places and not its own.
        const QString message = composed(content);
        QVERIFY(message.contains(u"Content-Type: image/x-xpage.xpage.x%2yyy;\r\n\tname=\"page.xpage.x%2yy\"\r\n"_s));
        QVERIFY(message.contains(u"\tfilename=\"%3\"\r\n"_s));
    }

    void percentSignsInWhatIsTypedStandAsTheyAre()
    {
        MailContent content = letter;
        content.from = u"%1@example.test"_s;
        content.to = u"%2@example.test"_s;
        content.subject = u"100 %1 %2 %3"_s;
        content.body = u"%1"_s;

        const QString message = composed(content);
        QVERIFY(message.startsWith(u"Return-Path: <%1@example.test>\r\nFrom: <%1@example.test>\r\n"
                                   "To: <%2@example.test>\r\nSubject: 100 %1 %2 %3\r\n"_s));
        QVERIFY(message.contains(u"filename=\"message.txt\"\r\n\r\n%1\r\n\r\n--"_s));
    }

    void theBodyIsNeitherEncodedNorStuffed_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("sent");

        QTest::newRow("empty") << QString() << u"\r\n\r\n"_s;
        QTest::newRow("line feeds") << u"a\nb\n"_s << u"a\r\nb\r\n\r\n\r\n"_s;
        QTest::newRow("a second carriage return") << u"a\r\nb"_s << u"a\r\r\nb\r\n\r\n"_s;
        QTest::newRow("a lone full stop") << u"a\n.\nb"_s << u"a\r\n.\r\nb\r\n\r\n"_s;
        QTest::newRow("leading full stops") << u"..a\n.b"_s << u"..a\r\n.b\r\n\r\n"_s;
        QTest::newRow("not ASCII") << u"Grüße €"_s << u"Grüße €\r\n\r\n"_s;
        QTest::newRow("a boundary") << u"--NextPart_KOLMA_Boundary.7976494"_s
                                    << u"--NextPart_KOLMA_Boundary.7976494\r\n\r\n"_s;
    }
    void theBodyIsNeitherEncodedNorStuffed()
    {
        QFETCH(const QString, body);
        QFETCH(const QString, sent);
        MailContent content = letter;
        content.body = body;

        QVERIFY(composed(content).contains(u"inline; filename=\"message.txt\"\r\n\r\n"_s + sent
                                           + u"--NextPart_KOLMA_Boundary.7976494\r\nContent-Type: image/"_s));
    }

    void theSubjectStandsAsItIsTyped()
    {
        MailContent content = letter;
        content.subject = u"Grüße =?x?= "_s;

        QVERIFY(composed(content).contains(u"\r\nSubject: Grüße =?x?= \r\nDate: "_s));
    }

    void theDateHasTheZoneOfTheMachine_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("date");

        QTest::newRow("none") << "UTC"_ba << u"Sun, 12 Nov 2006 12:00:00 +0000"_s;
        QTest::newRow("east") << "XXX-5:30"_ba << u"Sun, 12 Nov 2006 17:30:00 +0530"_s;
        QTest::newRow("west, the day before") << "XXX13"_ba << u"Sat, 11 Nov 2006 23:00:00 -1300"_s;
    }
    void theDateHasTheZoneOfTheMachine()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const QString, date);

        qputenv("TZ", zone);
        const QString found = mail_date(noon);
        qputenv("TZ", "UTC");
        tzset();

        QCOMPARE(found, date);
    }

    void theDateIsEnglishInEveryLocaleAndTheLocaleStays()
    {
        const QTemporaryDir locales; // a machine may have none but English ones
        const QString german = locales.filePath(u"de_DE.UTF-8"_s);
        QCOMPARE(QProcess::execute(u"localedef"_s, {u"-i"_s, u"de_DE"_s, u"-f"_s, u"UTF-8"_s, german}), 0);
        qputenv("LOCPATH", QFile::encodeName(locales.path()));
        const QByteArray former = std::setlocale(LC_ALL, nullptr);
        QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8"));
        const QByteArray own = std::setlocale(LC_ALL, nullptr);

        const QString date = mail_date(noon);

        QCOMPARE(QByteArray(std::setlocale(LC_ALL, nullptr)), own);
        QVERIFY(std::setlocale(LC_ALL, former.constData()));
        QCOMPARE(date, u"Sun, 12 Nov 2006 12:00:00 +0000"_s);
    }
};

QTEST_GUILESS_MAIN(tst_mail_message)
#include "tst_mail_message.moc"

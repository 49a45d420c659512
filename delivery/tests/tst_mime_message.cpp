#include "mime_message.h"

#include <QTest>

#include <sstream>

using namespace Qt::StringLiterals;

class tst_mime_message : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("TZ", "UTC");
        tzset();
    }

    void aWholeMessageIsByTheBook()
    {
        const MailContent letter{.from = u"ann@example.test"_s,
                                 .to = u"bob@example.test"_s,
                                 .subject = u"scan"_s,
                                 .body = u"Hello\n.\n"_s,
                                 .attachmentPath = u"/home/ann/scan.png"_s};
        std::istringstream attachment("ABC");

        QCOMPARE(compose_mime_message(letter, attachment, 1163332800, u"0a1b"_s),
                 u"From: <ann@example.test>\r\n"
                 "To: <bob@example.test>\r\n"
                 "Subject: scan\r\n"
                 "Date: Sun, 12 Nov 2006 12:00:00 +0000\r\n"
                 "Message-ID: <0a1b@example.test>\r\n"
                 "X-Mailer: Varden frontend\r\n"
                 "MIME-Version: 1.0\r\n"
                 "Content-Type: multipart/mixed;\r\n"
                 " boundary=\"=_0a1b\"\r\n"
                 "\r\n"
                 "This is a multi-part message in MIME format.\r\n"
                 "\r\n"
                 "--=_0a1b\r\n"
                 "Content-Type: text/plain; charset=UTF-8\r\n"
                 "Content-Transfer-Encoding: quoted-printable\r\n"
                 "Content-Disposition: inline\r\n"
                 "\r\n"
                 "Hello\r\n"
                 "..\r\n"
                 "\r\n"
                 "\r\n"
                 "--=_0a1b\r\n"
                 "Content-Type: image/png\r\n"
                 "Content-Transfer-Encoding: base64\r\n"
                 "Content-Disposition: attachment;\r\n"
                 " filename=\"scan.png\"\r\n"
                 "\r\n"
                 "QUJD\r\n"
                 "\r\n"
                 "--=_0a1b--\r\n"
                 "."_s);
    }

    void quotedPrintableHidesWhatMayBeChangedOnTheWay_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("encoded");

        QTest::newRow("empty") << QString() << "\r\n"_ba;
        QTest::newRow("plain") << u"a b!~"_s << "a b!~\r\n"_ba;
        QTest::newRow("every line end") << u"a\nb\r\nc\rd"_s << "a\r\nb\r\nc\r\nd\r\n"_ba;
        QTest::newRow("equals sign") << u"a=b"_s << "a=3Db\r\n"_ba;
        QTest::newRow("blanks at the end") << u"a \nb\t"_s << "a=20\r\nb=09\r\n"_ba;
        QTest::newRow("not ASCII") << u"\u00e9\u20ac"_s << "=C3=A9=E2=82=AC\r\n"_ba;
        QTest::newRow("controls") << u"\a"_s << "=07\r\n"_ba;
        QTest::newRow("75 characters") << QString(75, u'x') << QByteArray(75, 'x') + "\r\n";
        QTest::newRow("76 characters") << QString(76, u'x') << QByteArray(75, 'x') + "=\r\nx\r\n";
        QTest::newRow("no code is cut") << QString(73, u'x') + u"="_s << QByteArray(73, 'x') + "=\r\n=3D\r\n";
        QTest::newRow("a boundary") << u"--=_0a1b"_s << "--=3D_0a1b\r\n"_ba;
    }
    void quotedPrintableHidesWhatMayBeChangedOnTheWay()
    {
        QFETCH(const QString, text);
        QFETCH(const QByteArray, encoded);

        QCOMPARE(quoted_printable(text), encoded);
    }

    void aHeaderIsEncodedWhereItHasTo_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("line");

        QTest::newRow("plain") << u"a scan"_s << "Subject: a scan\r\n"_ba;
        QTest::newRow("no second header") << u"a\r\nBcc: b"_s << "Subject: a  Bcc: b\r\n"_ba;
        QTest::newRow("not ASCII") << u"\u00e9"_s << "Subject: =?UTF-8?B?w6k=?=\r\n"_ba;
        QTest::newRow("what looks encoded") << u"=?"_s << "Subject: =?UTF-8?B?PT8=?=\r\n"_ba;
        QTest::newRow("two words, no character cut") // 19 of 2 bytes make 38; the 20th would be cut at 39
            << QString(20, u'\u00e9')
            << "Subject: =?UTF-8?B?" + QByteArray("\xc3\xa9").repeated(19).toBase64() + "?=\r\n =?UTF-8?B?w6k=?=\r\n";
    }
    void aHeaderIsEncodedWhereItHasTo()
    {
        QFETCH(const QString, text);
        QFETCH(const QByteArray, line);

        QCOMPARE(text_header("Subject", text), line);
    }

    void noHeaderLineIsLongerThan76()
    {
        const QByteArray header = text_header("Subject", QString(512, u'\u6771'));

        for (const QByteArray &line : header.split('\n'))
            QVERIFY2(line.trimmed().size() <= 76, line.constData());
    }

    void aFileNameIsEncodedWhereItHasTo_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("parameter");

        QTest::newRow("plain") << u"my scan.png"_s << ";\r\n filename=\"my scan.png\""_ba;
        QTest::newRow("quote") << u"a\"b"_s << ";\r\n filename*0*=UTF-8''a%22b"_ba;
        QTest::newRow("not ASCII") << u"\u00e9.png"_s << ";\r\n filename*0*=UTF-8''%C3%A9.png"_ba;
        QTest::newRow("no second header") << u"a\r\nb"_s << ";\r\n filename=\"a  b\""_ba;
        QTest::newRow("pieces, no character cut") // 9 of 2 bytes make 18
            << QString(10, u'\u00e9')
            << ";\r\n filename*0*=UTF-8''" + QByteArray("%C3%A9").repeated(9) + ";\r\n filename*1*=%C3%A9";
    }
    void aFileNameIsEncodedWhereItHasTo()
    {
        QFETCH(const QString, name);
        QFETCH(const QByteArray, parameter);

        QCOMPARE(file_name_parameter("filename", name), parameter);
    }

    void aTypeIsARegisteredOneOrThatOfAnyBytes_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QByteArray>("type");

        QTest::newRow("capitals") << u"TIF"_s << "image/tiff"_ba;
        QTest::newRow("jpg") << u"jpg"_s << "image/jpeg"_ba;
        QTest::newRow("not registered") << u"xpm"_s << "application/octet-stream"_ba;
        QTest::newRow("none") << QString() << "application/octet-stream"_ba;
    }
    void aTypeIsARegisteredOneOrThatOfAnyBytes()
    {
        QFETCH(const QString, suffix);
        QFETCH(const QByteArray, type);

        QCOMPARE(media_type(suffix), type);
    }

    void anAddressIsOneInAsciiOrNone_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("ascii");

        QTest::newRow("plain") << u"a.b+c@d.ef"_s << u"a.b+c@d.ef"_s;
        QTest::newRow("domain beyond ASCII") << u"a@m\u00fcller.de"_s << u"a@xn--mller-kva.de"_s;
        QTest::newRow("name beyond ASCII") << u"\u00e9@b.de"_s << QString();
        QTest::newRow("a second command") << u"a>\r\nDATA\r\n@b.de"_s << QString();
        QTest::newRow("no @") << u"b.de"_s << QString();
        QTest::newRow("no domain") << u"a@"_s << QString();
    }
    void anAddressIsOneInAsciiOrNone()
    {
        QFETCH(const QString, address);
        QFETCH(const QString, ascii);

        QCOMPARE(ascii_address(address), ascii);
    }
};

QTEST_GUILESS_MAIN(tst_mime_message)
#include "tst_mime_message.moc"

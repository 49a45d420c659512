#include "FtpReplyReader.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Replies as "code text".
QStringList texts_of(FtpReplyReader &reader, QByteArrayView bytes)
{
    QStringList texts;
    while (const std::optional<FtpReply> reply = reader.take(bytes))
        texts.append(QString::number(reply->code) + u' ' + reply->text);
    return texts;
}

QStringList texts_of(const QByteArray &bytes)
{
    FtpReplyReader reader;
    return texts_of(reader, bytes);
}

} // namespace

class tst_FtpReplyReader : public QObject
{
    Q_OBJECT

private slots:
    void repliesAreNumberAndText_data();
    void repliesAreNumberAndText();
    void repliesComeOutWhereverTheyAreCut_data();
    void repliesComeOutWhereverTheyAreCut();
    void takeStopsBehindAReply();
    void longLineIsKeptInPartAndTheNextReplyIsWhole();
    void endlessLineGivesNothingAndTakesNoMemory();
    void longReplyKeepsItsFirstLines();
    void cutTextLosesNoMoreThanItsLastCharacter();
    void unfinishedReplyIsToldWithWhatHasCome_data();
    void unfinishedReplyIsToldWithWhatHasCome();
};

void tst_FtpReplyReader::repliesAreNumberAndText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("replies");

    QTest::newRow("one line") << QByteArray("220 Ready\r\n") << QStringList{u"220 Ready"_s};
    QTest::newRow("bare line feed") << QByteArray("220 Ready\n") << QStringList{u"220 Ready"_s};
    QTest::newRow("no text") << QByteArray("220\r\n") << QStringList{u"220 "_s};
    QTest::newRow("two at once") << QByteArray("331 Who?\r\n230 In\r\n") << QStringList{u"331 Who?"_s, u"230 In"_s};
    QTest::newRow("not ended") << QByteArray("220 Ready\r") << QStringList{};
    QTest::newRow("several lines") << QByteArray("220-Hello\r\n220-there\r\n220 friend\r\n")
                                   << QStringList{u"220 Hello\nthere\nfriend"_s};
    QTest::newRow("lines without the number") << QByteArray("220-Hello\r\n and\r\n331 more\r\n220 end\r\n")
                                              << QStringList{u"220 Hello\n and\n331 more\nend"_s};
    QTest::newRow("empty lines within") << QByteArray("220-a\r\n\r\n220 b\r\n") << QStringList{u"220 a\n\nb"_s};
    QTest::newRow("ended by the number alone") << QByteArray("220-a\r\n220\r\n") << QStringList{u"220 a"_s};
    QTest::newRow("empty lines between") << QByteArray("\r\n\n220 a\r\n") << QStringList{u"220 a"_s};
    QTest::newRow("no number") << QByteArray("Hello\r\n") << QStringList{u"0 Hello"_s};
    QTest::newRow("two figures") << QByteArray("22 a\r\n") << QStringList{u"0 22 a"_s};
    QTest::newRow("four figures") << QByteArray("2200 a\r\n") << QStringList{u"0 2200 a"_s};
    QTest::newRow("below all replies") << QByteArray("099 a\r\n") << QStringList{u"0 099 a"_s};
    QTest::newRow("above all replies") << QByteArray("600 a\r\n") << QStringList{u"0 600 a"_s};
    QTest::newRow("control characters") << QByteArray("220 a\x1b[1mb\0c\x7f"
                                                      "d\r\n",
                                                      16)
                                        << QStringList{u"220 a [1mb c d"_s};
    QTest::newRow("UTF-8") << QByteArray("530 gr\xc3\xbc\xc3\x9f\r\n") << QStringList{u"530 grüß"_s};
    QTest::newRow("Latin-1") << QByteArray("530 gr\xfc\xdf\r\n") << QStringList{u"530 grüß"_s};
}

void tst_FtpReplyReader::repliesAreNumberAndText()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QStringList, replies);

    QCOMPARE(texts_of(bytes), replies);
}

void tst_FtpReplyReader::repliesComeOutWhereverTheyAreCut_data()
{
    QTest::addColumn<int>("pieceSize");
    for (const int size : {1, 2, 3, 5, 7, 11})
        QTest::addRow("pieces of %d", size) << size;
}

void tst_FtpReplyReader::repliesComeOutWhereverTheyAreCut()
{
    QFETCH(const int, pieceSize);
    const QByteArray bytes = "220-Hello\r\nthere\r\n220 friend\r\n331 Who?\r\n";
    FtpReplyReader reader;

    QStringList replies;
    for (qsizetype i = 0; i < bytes.size(); i += pieceSize)
        replies += texts_of(reader, bytes.mid(i, pieceSize));

    QCOMPARE(replies, (QStringList{u"220 Hello\nthere\nfriend"_s, u"331 Who?"_s}));
}

void tst_FtpReplyReader::takeStopsBehindAReply()
{
    FtpReplyReader reader;
    QByteArrayView bytes("220 a\r\n331 b");

    QVERIFY(reader.take(bytes));

    QCOMPARE(bytes, QByteArrayView("331 b"));
}

void tst_FtpReplyReader::longLineIsKeptInPartAndTheNextReplyIsWhole()
{
    const QByteArray banner = "220 " + QByteArray(qsizetype{10} * 1024 * 1024, 'x') + "\r\n";

    const QStringList replies = texts_of(banner + "331 Who?\r\n");

    QCOMPARE(replies.size(), 2);
    QCOMPARE(replies.first(), u"220 "_s + QString(FtpReplyReader::TextLimit - 4, u'x'));
    QCOMPARE(replies.last(), u"331 Who?"_s);
}

void tst_FtpReplyReader::endlessLineGivesNothingAndTakesNoMemory()
{
    FtpReplyReader reader;
    const QByteArray piece(qsizetype{1024} * 1024, 'x');
    for (int i = 0; i < 64; ++i)
        QCOMPARE(texts_of(reader, piece), QStringList());

    QCOMPARE(texts_of(reader, "\r\n"), QStringList(u"0 "_s + QString(FtpReplyReader::TextLimit, u'x')));
}

void tst_FtpReplyReader::longReplyKeepsItsFirstLines()
{
    QByteArray bytes;
    for (int i = 1; i <= 1'000'000; ++i)
        bytes += "220-" + QByteArray::number(i) + "\r\n";

    const QStringList replies = texts_of(bytes + "220 last\r\n230 In\r\n");

    QCOMPARE(replies, (QStringList{u"220 1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16"_s, u"230 In"_s}));
}

void tst_FtpReplyReader::cutTextLosesNoMoreThanItsLastCharacter()
{
    // "ü" takes two bytes, of which the bound leaves the first.
    const qsizetype whole = FtpReplyReader::TextLimit - 5;

    const QStringList replies = texts_of("530 " + QByteArray(whole, 'x') + "\xc3\xbc\r\n");

    QCOMPARE(replies, QStringList(u"530 "_s + QString(whole, u'x')));
}

void tst_FtpReplyReader::unfinishedReplyIsToldWithWhatHasCome_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reply");

    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("a finished one only") << QByteArray("220 a\r\n") << QString();
    QTest::newRow("within the number") << QByteArray("42") << QString();
    QTest::newRow("within the text") << QByteArray("421 By") << u"421 By"_s;
    QTest::newRow("behind a line of several") << QByteArray("421-Good\r\n") << u"421 Good"_s;
    QTest::newRow("within a line of several") << QByteArray("421-Good\r\n421 by") << u"421 Good\nby"_s;
    QTest::newRow("no number") << QByteArray("Hel") << QString();
}

void tst_FtpReplyReader::unfinishedReplyIsToldWithWhatHasCome()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reply);
    FtpReplyReader reader;
    (void)texts_of(reader, bytes);

    const std::optional<FtpReply> unfinished = reader.unfinished();

    QCOMPARE(unfinished ? QString::number(unfinished->code) + u' ' + unfinished->text : QString(), reply);
}

QTEST_GUILESS_MAIN(tst_FtpReplyReader)
#include "tst_FtpReplyReader.moc"

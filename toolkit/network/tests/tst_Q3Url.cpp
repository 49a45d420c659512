#include "Q3Url.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_Q3Url : public QObject
{
    Q_OBJECT

private slots:
    void textIsTakenApart_data();
    void textIsTakenApart();
    void setPartsStandInTheText_data();
    void setPartsStandInTheText();
    void pathIsCleanedInTheText_data();
    void pathIsCleanedInTheText();
    void localTextIsThePathAsItStands_data();
    void localTextIsThePathAsItStands();
    void whateverPartsHoldTheTextLeadsBackToThem_data();
    void whateverPartsHoldTheTextLeadsBackToThem();
};

void tst_Q3Url::textIsTakenApart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("parts"); // protocol, user, password, host, port, path

    QTest::newRow("host alone") << u"ftp://h"_s << QStringList{u"ftp"_s, {}, {}, u"h"_s, u"-1"_s, u"/"_s};
    QTest::newRow("port and path") << u"ftp://h:21/dir/x"_s
                                   << QStringList{u"ftp"_s, {}, {}, u"h"_s, u"21"_s, u"/dir/x"_s};
    QTest::newRow("user") << u"ftp://u@h/"_s << QStringList{u"ftp"_s, u"u"_s, {}, u"h"_s, u"-1"_s, u"/"_s};
    QTest::newRow("user and password") << u"ftp://u%40x:p%3Aq%2F@h/"_s
                                       << QStringList{u"ftp"_s, u"u@x"_s, u"p:q/"_s, u"h"_s, u"-1"_s, u"/"_s};
    QTest::newRow("marks in the path") << u"ftp://h/a#b?c%41@d:e"_s
                                       << QStringList{u"ftp"_s, {}, {}, u"h"_s, u"-1"_s, u"/a#b?c%41@d:e"_s};
    QTest::newRow("address in figures") << u"ftp://::1"_s << QStringList{u"ftp"_s, {}, {}, u"::1"_s, u"-1"_s, u"/"_s};
    QTest::newRow("address in brackets") << u"ftp://[::1]/"_s
                                         << QStringList{u"ftp"_s, {}, {}, u"::1"_s, u"-1"_s, u"/"_s};
    QTest::newRow("address in brackets with port")
        << u"ftp://[::1]:21/"_s << QStringList{u"ftp"_s, {}, {}, u"::1"_s, u"21"_s, u"/"_s};
    QTest::newRow("no port at all") << u"ftp://h:99999/"_s
                                    << QStringList{u"ftp"_s, {}, {}, u"h:99999"_s, u"-1"_s, u"/"_s};
    QTest::newRow("local") << u"file:/p/x.png"_s << QStringList{u"file"_s, {}, {}, {}, u"-1"_s, u"/p/x.png"_s};
    QTest::newRow("local with marks") << u"file:/p/a#b?c%41://"_s
                                      << QStringList{u"file"_s, {}, {}, {}, u"-1"_s, u"/p/a#b?c%41://"_s};
    QTest::newRow("local and relative") << u"file:x.png"_s << QStringList{u"file"_s, {}, {}, {}, u"-1"_s, u"x.png"_s};
    QTest::newRow("path alone") << u"/p/x.png"_s << QStringList{u"file"_s, {}, {}, {}, u"-1"_s, u"/p/x.png"_s};
}

void tst_Q3Url::textIsTakenApart()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, parts);

    const Q3Url url(text);

    QCOMPARE(
        (QStringList{url.protocol(), url.user(), url.password(), url.host(), QString::number(url.port()), url.path()}),
        parts);
}

void tst_Q3Url::setPartsStandInTheText_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("text");

    QTest::newRow("anonymous") << u""_s << u""_s << u"h"_s << 21 << u"ftp://h:21/dir"_s;
    QTest::newRow("no port") << u""_s << u""_s << u"h"_s << -1 << u"ftp://h/dir"_s;
    QTest::newRow("user") << u"u"_s << u""_s << u"h"_s << 21 << u"ftp://u@h:21/dir"_s;
    QTest::newRow("user and password") << u"u@x"_s << u"p:/ q"_s << u"h"_s << 21
                                       << u"ftp://u%40x:p%3A%2F%20q@h:21/dir"_s;
    QTest::newRow("password alone") << u""_s << u"p"_s << u"h"_s << 21 << u"ftp://:p@h:21/dir"_s;
    QTest::newRow("address in figures") << u""_s << u""_s << u"::1"_s << 21 << u"ftp://[::1]:21/dir"_s;
}

void tst_Q3Url::setPartsStandInTheText()
{
    QFETCH(const QString, user);
    QFETCH(const QString, password);
    QFETCH(const QString, host);
    QFETCH(const int, port);
    QFETCH(const QString, text);
    Q3Url url(u"ftp://other"_s);

    url.setUser(user);
    url.setPassword(password);
    url.setHost(host);
    url.setPort(port);
    url.setPath(u"dir"_s);

    QCOMPARE(url.toString(), text);
}

void tst_Q3Url::pathIsCleanedInTheText_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("clean");

    QTest::newRow("empty") << u""_s << u"/"_s;
    QTest::newRow("root") << u"/"_s << u"/"_s;
    QTest::newRow("relative") << u"a/b"_s << u"/a/b"_s;
    QTest::newRow("doubled") << u"//a///b"_s << u"/a/b"_s;
    QTest::newRow("at the end") << u"/a/"_s << u"/a"_s;
    QTest::newRow("upwards") << u"/a/b/../c"_s << u"/a/c"_s;
    QTest::newRow("above the root") << u"/../../a"_s << u"/a"_s;
    QTest::newRow("here") << u"/./a/."_s << u"/a"_s;
    QTest::newRow("names with full stops") << u"/..a/b../.c"_s << u"/..a/b../.c"_s;
    QTest::newRow("blanks") << u"/ a /b "_s << u"/ a /b "_s;
}

void tst_Q3Url::pathIsCleanedInTheText()
{
    QFETCH(const QString, path);
    QFETCH(const QString, clean);
    Q3Url url(u"ftp://h"_s);

    url.setPath(path);

    QCOMPARE(url.path(), path);
    QCOMPARE(url.toString(), u"ftp://h"_s + clean);
}

void tst_Q3Url::localTextIsThePathAsItStands_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("plain") << u"/p/x.png"_s;
    QTest::newRow("marks") << u"/p/#?%41 \"'@:.png"_s;
    QTest::newRow("upwards") << u"/p/../q/x"_s; // a link may stand on the way
    QTest::newRow("relative") << u"x.png"_s;
}

void tst_Q3Url::localTextIsThePathAsItStands()
{
    QFETCH(const QString, path);

    const Q3Url url(u"file:"_s + path);

    QCOMPARE(url.path(), path);
    QCOMPARE(url.toString(), u"file:"_s + path);
    QCOMPARE(url.fileName(), path.section(u'/', -1));
}

void tst_Q3Url::whateverPartsHoldTheTextLeadsBackToThem_data()
{
    QTest::addColumn<QString>("part");
    for (const char *part : {"#", "?", "%41", "%", "@", ":", "a:b@c", "[", "]", "[::1]", "fe80::1%eth0", "h:21", " ",
                             "\"'", "\xc3\xbc", "a b", "+", "\\"})
        QTest::addRow("%s", part) << QString::fromUtf8(part);
}

void tst_Q3Url::whateverPartsHoldTheTextLeadsBackToThem()
{
    QFETCH(const QString, part);
    Q3Url url(u"ftp://h"_s);
    url.setUser(part);
    url.setPassword(part);
    url.setHost(part);
    url.setPort(21);
    url.setPath(u'/' + part);

    const Q3Url read(url.toString());

    QCOMPARE(read.user(), part);
    QCOMPARE(read.password(), part);
    QCOMPARE(read.host(), part);
    QCOMPARE(read.port(), 21);
    QCOMPARE(read.cleanPath(), u'/' + part);
}

QTEST_GUILESS_MAIN(tst_Q3Url)
#include "tst_Q3Url.moc"

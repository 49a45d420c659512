#include "files.h"
#include "HelpPages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

class tst_HelpPages : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_directory.reset(); }

    void pageOfTheLanguageComesFirst_data();
    void pageOfTheLanguageComesFirst();
    void emptyTopicIsTheOverview();
    void missingPageSaysSoWithTheOverviewBeneath();
    void missingDirectoryIsTold();
    void namesInWordsOfTheViewerAreNoMarkup();
    void contentsAreTheLinksOfTheOverview();
    void linksGoWhereTheyMay_data();
    void linksGoWhereTheyMay();
    void nothingOutsideTheDirectoryIsRead_data();
    void nothingOutsideTheDirectoryIsRead();

private:
    void write(const QString &name, const QByteArray &bytes) const { write_file(m_directory->filePath(name), bytes); }

    [[nodiscard]] HelpPages pages(const QString &locale = u"en_US"_s) const
    {
        return {m_directory->filePath(u"help"_s), u"Overview.htm"_s, locale};
    }

    std::optional<QTemporaryDir> m_directory;
};

void tst_HelpPages::init()
{
    m_directory.emplace();
    write(u"secret.htm"_s, "secret");
    write(u"help-too/secret.htm"_s, "secret");
    write(u"help/Overview.htm"_s,
          "<html><head><title>All of it</title></head><body><h1>Overview</h1>"
          "<a href=\"Scan.htm\">Scanning a page</a> <a href=\"Mail.htm#send\">Mail</a>"
          "<a href=\"Scan.htm\">again</a> <a href=\"https://example.org/\">elsewhere</a>"
          "<a href=\"../secret.htm\">out</a></body></html>");
    write(u"help/Scan.htm"_s, "english scan");
    write(u"help/Mail.htm"_s, "english mail");
    write(u"help/de/Scan.htm"_s, "deutscher Scan");
    write(u"help/de_AT/Scan.htm"_s, "österreichischer Scan");
}

void tst_HelpPages::pageOfTheLanguageComesFirst_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("contents");

    QTest::newRow("its own") << u"de_DE"_s << u"Scan.htm"_s << QByteArray("deutscher Scan");
    QTest::newRow("that of its country") << u"de_AT"_s << u"Scan.htm"_s << QByteArray("österreichischer Scan");
    QTest::newRow("not translated") << u"de_DE"_s << u"Mail.htm"_s << QByteArray("english mail");
    QTest::newRow("no such language") << u"fr_FR"_s << u"Scan.htm"_s << QByteArray("english scan");
    QTest::newRow("no language") << u"C"_s << u"Scan.htm"_s << QByteArray("english scan");
}

void tst_HelpPages::pageOfTheLanguageComesFirst()
{
    QFETCH(const QString, locale);
    QFETCH(const QString, name);
    const HelpPages pages = this->pages(locale);

    QTEST(pages.contents(pages.address(name)), "contents");
}

void tst_HelpPages::emptyTopicIsTheOverview()
{
    const HelpPages pages = this->pages();

    QCOMPARE(pages.address({}), pages.address(u"Overview.htm"_s));
}

void tst_HelpPages::missingPageSaysSoWithTheOverviewBeneath()
{
    const HelpPages pages = this->pages();

    const QString html = pages.html(pages.address(u"Nowhere.htm"_s));

    const qsizetype notice = html.indexOf("There is no help page &quot;Nowhere.htm&quot;."_L1);
    QVERIFY2(notice > 0, qPrintable(html));
    QVERIFY(html.indexOf("<h1>Overview</h1>"_L1) > notice);
}

void tst_HelpPages::missingDirectoryIsTold()
{
    const HelpPages pages(u"/nowhere/help"_s, u"Overview.htm"_s, u"en_US"_s);

    QVERIFY(pages.html(pages.address(u"Scan.htm"_s)).contains("there is no directory &quot;/nowhere/help&quot;"_L1));
    QVERIFY(pages.contentsList().isEmpty());
}

void tst_HelpPages::namesInWordsOfTheViewerAreNoMarkup()
{
    const HelpPages pages = this->pages();

    QVERIFY(pages.html(pages.address(u"<b>.htm"_s)).contains("&quot;&lt;b&gt;.htm&quot;"_L1));
}

void tst_HelpPages::contentsAreTheLinksOfTheOverview()
{
    const HelpPages pages = this->pages();

    const QList<HelpPages::Entry> expected{{u"All of it"_s, pages.address(u"Overview.htm"_s)},
                                           {u"Scanning a page"_s, pages.address(u"Scan.htm"_s)},
                                           {u"Mail"_s, pages.address(u"Mail.htm"_s)}};
    QVERIFY(pages.contentsList() == expected);
}

void tst_HelpPages::linksGoWhereTheyMay_data()
{
    QTest::addColumn<QString>("href");
    QTest::addColumn<HelpPages::Target>("target");

    using enum HelpPages::Target;
    QTest::newRow("page") << u"Mail.htm"_s << Page;
    QTest::newRow("part of a page") << u"Mail.htm#send"_s << Page;
    QTest::newRow("page of a language") << u"de/Scan.htm"_s << Page;
    QTest::newRow("web") << u"http://example.org/"_s << Desktop;
    QTest::newRow("secure web, in capitals") << u"HTTPS://example.org/"_s << Desktop;
    QTest::newRow("mail") << u"mailto:someone@example.org"_s << Desktop;
    QTest::newRow("above") << u"../secret.htm"_s << Refused;
    QTest::newRow("above, hidden") << u"de/../../secret.htm"_s << Refused;
    QTest::newRow("above, encoded") << u"%2e%2e/secret.htm"_s << Refused;
    QTest::newRow("directory that begins alike") << u"../help-too/secret.htm"_s << Refused;
    QTest::newRow("the directory itself") << u"."_s << Refused;
    QTest::newRow("file elsewhere") << u"file:///etc/passwd"_s << Refused;
    QTest::newRow("file of another machine") << u"file://server/etc/passwd"_s << Refused;
    QTest::newRow("script") << u"javascript:alert(1)"_s << Refused;
    QTest::newRow("ftp") << u"ftp://example.org/"_s << Refused;
    QTest::newRow("data") << u"data:text/html,hello"_s << Refused;
}

void tst_HelpPages::linksGoWhereTheyMay()
{
    QFETCH(const QString, href);
    const HelpPages pages = this->pages();

    QTEST(pages.target(pages.address(u"Scan.htm"_s).resolved(QUrl(href))), "target");
}

void tst_HelpPages::nothingOutsideTheDirectoryIsRead_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("above") << u"../secret.htm"_s;
    QTest::newRow("above a language") << u"../../secret.htm"_s; // "help/de/" in front of it is "help/" again
    QTest::newRow("by a link") << u"link.htm"_s;
    QTest::newRow("by a linked directory") << u"out/secret.htm"_s;
    QTest::newRow("a directory") << u"de"_s;
}

void tst_HelpPages::nothingOutsideTheDirectoryIsRead()
{
    QFETCH(const QString, name);
    QVERIFY(QFile::link(m_directory->filePath(u"secret.htm"_s), m_directory->filePath(u"help/link.htm"_s)));
    QVERIFY(QFile::link(m_directory->filePath(u"help-too"_s), m_directory->filePath(u"help/out"_s)));
    const HelpPages pages = this->pages(u"de_DE"_s);

    QVERIFY(pages.contents(pages.address(name)).isNull());
    QVERIFY(!pages.html(pages.address(name)).contains("secret</"_L1));
}

QTEST_GUILESS_MAIN(tst_HelpPages)
#include "tst_HelpPages.moc"

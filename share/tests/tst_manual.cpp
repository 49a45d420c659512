#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QDir manual(QStringLiteral(IM_MANUAL));
const QDir sources(QStringLiteral(IM_SOURCES));
const QStringList languages{u"de"_s, u"es"_s, u"fr"_s, u"ja"_s, u"pl"_s};

QString contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList captures(const QString &text, const QString &pattern)
{
    QStringList found;
    for (auto match = QRegularExpression(pattern, QRegularExpression::DotMatchesEverythingOption).globalMatch(text);
         match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

/// What a reader sees of a piece of HTML, with single blanks between the words.
QString readableText(QString html)
{
    html.replace(QRegularExpression(u"<br>|</(dt|dd|td|th|p|h[12]|li|pre)>"_s), u" "_s);
    html.remove(QRegularExpression(u"<[^>]*>"_s));
    html.replace("&lt;"_L1, "<"_L1)
        .replace("&gt;"_L1, ">"_L1)
        .replace("&quot;"_L1, "\""_L1)
        .replace("&amp;"_L1, "&"_L1);
    return html.simplified();
}

/// All pages of the manual in English, one behind the other.
QString englishManual()
{
    QString text;
    for (const QString &name : manual.entryList({u"*.htm"_s}))
        text += readableText(contents(manual.filePath(name))) + u'\n';
    return text;
}

/// The string literals of a piece of C++, pieces of one literal joined.
QStringList literals(QString code)
{
    static const QRegularExpression joint(u"\"\\s*\\n\\s*\""_s);
    code.remove(joint);
    QStringList texts = captures(code, u"\"((?:[^\"\\\\]|\\\\.)*)\""_s);
    for (QString &text : texts)
        text.replace("\\n"_L1, "\n"_L1).replace("\\\""_L1, "\""_L1);
    return texts;
}

} // namespace

/// The manual against itself and against the program's sources.
class tst_manual : public QObject
{
    Q_OBJECT

private slots:
    void everyLinkAndPictureIsThere_data();
    void everyLinkAndPictureIsThere();
    void everyPageIsReachedFromTheOverview();
    void everyLanguageHasEveryPageWithTheSameParts_data();
    void everyLanguageHasEveryPageWithTheSameParts();
    void everyCommandIsDescribed();
    void everyTextOfAMessageBoxIsExplained();
};

void tst_manual::everyLinkAndPictureIsThere_data()
{
    QTest::addColumn<QString>("page");

    for (const QString &name : manual.entryList({u"*.htm"_s}))
        QTest::newRow(qPrintable(name)) << name;
    for (const QString &language : languages) {
        for (const QString &name : QDir(manual.filePath(language)).entryList({u"*.htm"_s}))
            QTest::addRow("%s/%s", qPrintable(language), qPrintable(name)) << language + u'/' + name;
    }
}

void tst_manual::everyLinkAndPictureIsThere()
{
    QFETCH(const QString, page);
    const QString html = contents(manual.filePath(page));
    const QStringList targets = captures(html, u"(?:href|src)=\"([^\"]*)\""_s);
    QVERIFY(!targets.isEmpty());

    for (const QString &target : targets) {
        // The viewer looks in the language's directory first, then here.
        const QString name = target.section(u'#', 0, 0);
        QVERIFY2(QFileInfo(manual.filePath(name)).isFile(), qPrintable(target));
        if (const QString part = target.section(u'#', 1); !part.isEmpty())
            QVERIFY2(contents(manual.filePath(name)).contains(u"id=\"%1\""_s.arg(part)), qPrintable(target));
    }
}

void tst_manual::everyPageIsReachedFromTheOverview()
{
    const QString overview = contents(manual.filePath(u"DriverPackageOverview.htm"_s));

    for (const QString &name : manual.entryList({u"*.htm"_s})) {
        if (name != "DriverPackageOverview.htm"_L1)
            QVERIFY2(overview.contains(u"<li><a href=\"%1\">"_s.arg(name)), qPrintable(name));
    }
}

void tst_manual::everyLanguageHasEveryPageWithTheSameParts_data()
{
    QTest::addColumn<QString>("language");

    for (const QString &language : languages)
        QTest::newRow(qPrintable(language)) << language;
}

void tst_manual::everyLanguageHasEveryPageWithTheSameParts()
{
    QFETCH(const QString, language);
    const QStringList names = manual.entryList({u"*.htm"_s});
    QCOMPARE(QDir(manual.filePath(language)).entryList({u"*.htm"_s}), names);

    for (const QString &name : names) {
        const QString translated = contents(manual.filePath(language + u'/' + name));
        // Headings, rows and entries come in the same order, and so do links, pictures and what is typed.
        const QString parts = u"(<h[12]>|<tr>|<dt>|<li>|<pre>|<(?:a href|img src)=\"[^\"]*\")"_s;
        const QStringList expected = captures(contents(manual.filePath(name)), parts);
        const QStringList actual = captures(translated, parts);
        QVERIFY2(actual == expected, qPrintable(name));
        QVERIFY2(translated.contains(u"<html lang=\"%1\">"_s.arg(language)), qPrintable(name));
    }
}

void tst_manual::everyCommandIsDescribed()
{
    const QString text = englishManual();
    const QString table = contents(sources.filePath(u"mainwindow/action_table.cpp"_s));
    const QStringList commands = captures(table,
                                          u"QT_TRANSLATE_NOOP\\(\"Global String Table\",\\s*\"([^\"]*)\"\\),\\s*"
                                          "QT_TRANSLATE_NOOP\\(\"Global String Table\",\\s*\"[^\"]*\"\\),"_s);
    QVERIFY(commands.size() > 35);

    for (const QString &command : commands)
        QVERIFY2(text.contains(command), qPrintable(command));
}

void tst_manual::everyTextOfAMessageBoxIsExplained()
{
    const QString text = englishManual();
    const QRegularExpression diagnostics(u"\\bq(?:Debug|Warning|Critical|Fatal)\\(.*?\\);\\n"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    // A sentence of a box tells what is wrong or asks; the status bar's end in three full stops.
    const QRegularExpression sentence(u"^[A-Z%\"].* .*(?:[^.][.?!:])$|^[A-Z\"].*\\n|^(?:Error|Unable) "_s,
                                      QRegularExpression::DotMatchesEverythingOption);
    QStringList missing;
    int found = 0;
    for (const QString &folder : {u"mainwindow"_s, u"filedialogs"_s, u"delivery"_s, u"toolkit/network"_s}) {
        for (const QFileInfo &file : QDir(sources.filePath(folder)).entryInfoList({u"*.cpp"_s})) {
            if (file.fileName().endsWith("_message.cpp"_L1))
                continue; // what others read
            QString code = contents(file.filePath());
            code.remove(diagnostics);
            code.remove(QRegularExpression(u"//[^\n]*"_s));
            for (const QString &literal : literals(code)) {
                if (literal.size() < 16 || !sentence.match(literal).hasMatch())
                    continue;
                ++found;
                // The manual has the sentence that says what is wrong; examples below it need not be there.
                if (!text.contains(literal.section(u'\n', 0, 0, QString::SectionSkipEmpty).simplified()))
                    missing.append(file.fileName() + u": "_s + literal);
            }
        }
    }
    QVERIFY(found > 10);
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u"\n"_s)));
}

QTEST_GUILESS_MAIN(tst_manual)
#include "tst_manual.moc"

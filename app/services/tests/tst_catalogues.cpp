#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Message
{
    QString context;
    QString source;
    QString translation;
    QString type; ///< empty for one that is finished
};

/// The messages of a catalogue's source, in order.
QList<Message> read_messages(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    QList<Message> messages;
    Message message;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "name"_L1) {
            message.context = xml.readElementText();
        } else if (xml.name() == "source"_L1) {
            message.source = xml.readElementText();
        } else if (xml.name() == "translation"_L1) {
            message.type = xml.attributes().value("type"_L1).toString();
            message.translation = xml.readElementText();
            messages.append(message);
        }
    }
    return xml.hasError() ? QList<Message>() : messages;
}

QStringList matches(const QString &text, const QString &pattern)
{
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found.append(match.next().captured());
    std::ranges::sort(found);
    return found;
}

QStringList place_markers(const QString &text)
{
    return matches(text, u"%[0-9]"_s);
}

qsizetype mnemonics(const QString &text)
{
    return matches(text, u"&[^& ]"_s).size();
}

QString blanks_around(const QString &text)
{
    const QString trimmed = text.trimmed();
    return text.first(text.indexOf(trimmed)) + '|'_L1 + text.sliced(text.indexOf(trimmed) + trimmed.size());
}

} // namespace

/// What a translator can get wrong without anybody noticing, in every catalogue of the package.
class tst_catalogues : public QObject
{
    Q_OBJECT

private slots:
    void everyLanguageHasEveryCatalogue()
    {
        QStringList expected;
        for (const QString &name : {u"ImageManager"_s, u"imageview"_s, u"pagr"_s, u"utils"_s}) {
            for (const QString &language : {u"de"_s, u"es"_s, u"fr"_s, u"ja"_s, u"pl"_s})
                expected.append(name + '_'_L1 + language + ".ts"_L1);
        }

        QCOMPARE(catalogues(), expected);
    }

    void allLanguagesTranslateTheSameTexts_data() { rows(); }
    void allLanguagesTranslateTheSameTexts()
    {
        QFETCH(const QString, path);
        QString germanPath = path;
        germanPath.replace(QRegularExpression(u"_[a-z]+\\.ts$"_s), u"_de.ts"_s);
        const auto sources = [](const QList<Message> &messages) {
            QStringList list;
            for (const Message &message : messages)
                list.append(message.context + ": "_L1 + message.source);
            std::ranges::sort(list);
            return list;
        };

        QCOMPARE(sources(read_messages(path)), sources(read_messages(germanPath)));
    }

    void everyTextIsTranslated_data() { rows(); }
    void everyTextIsTranslated()
    {
        QFETCH(const QString, path);
        const QList<Message> messages = read_messages(path);
        QVERIFY(!messages.isEmpty());
        for (const Message &message : messages) {
            QVERIFY2(message.type.isEmpty(), qPrintable(message.source));
            QVERIFY2(!message.translation.isEmpty(), qPrintable(message.source));
        }
    }

    void translationsKeepTheFormOfTheirTexts_data() { rows(); }
    void translationsKeepTheFormOfTheirTexts()
    {
        QFETCH(const QString, path);
        for (const Message &message : read_messages(path)) {
            const QByteArray where = (message.source + " -> "_L1 + message.translation).toUtf8();
            QVERIFY2(place_markers(message.translation) == place_markers(message.source), where.constData());
            QVERIFY2(blanks_around(message.translation) == blanks_around(message.source), where.constData());
            QVERIFY2(message.translation.endsWith("..."_L1) == message.source.endsWith("..."_L1), where.constData());
            QVERIFY2(matches(message.translation, u"<[^>]*>"_s) == matches(message.source, u"<[^>]*>"_s),
                     where.constData());
            // The one menu text that has no mnemonic in English shares its text with the command's plain name.
            if (message.source != "Close All"_L1)
                QVERIFY2(mnemonics(message.translation) == mnemonics(message.source), where.constData());
        }
    }

private:
    static QStringList catalogues() { return QDir(QStringLiteral(IM_CATALOGUES)).entryList({u"*.ts"_s}, QDir::Files); }

    static void rows()
    {
        QTest::addColumn<QString>("path");
        for (const QString &name : catalogues())
            QTest::newRow(qPrintable(name)) << QDir(QStringLiteral(IM_CATALOGUES)).filePath(name);
    }
};

QTEST_GUILESS_MAIN(tst_catalogues)
#include "tst_catalogues.moc"

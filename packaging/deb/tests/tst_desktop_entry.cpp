#include <QFile>
#include <QImageReader>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The desktop entry against the program that it starts.
class tst_desktop_entry : public QObject
{
    Q_OBJECT

private slots:
    void typesAreThoseThatTheProgramReads();
};

void tst_desktop_entry::typesAreThoseThatTheProgramReads()
{
    QFile file(QStringLiteral(IM_DESKTOP_ENTRY));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList listed;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.startsWith("MimeType="_L1))
            listed = line.mid(9).split(u';', Qt::SkipEmptyParts);
    }

    QStringList readable;
    for (const QByteArray &type : QImageReader::supportedMimeTypes())
        readable.append(QString::fromLatin1(type));
    // Drawings have no pixels of their own, and their plug-in is no part of the package's needs.
    readable.removeIf([](const QString &type) { return type.startsWith("image/svg"_L1); });
    std::ranges::sort(readable);
    QCOMPARE(listed, readable);
}

QTEST_GUILESS_MAIN(tst_desktop_entry)
#include "tst_desktop_entry.moc"

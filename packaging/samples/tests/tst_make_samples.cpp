#include "files.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int MillimetresOfA4Width = 210;

void add_samples()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("depth");
    // A4 is 210 by 297 mm, an inch 25.4 mm.
    QTest::newRow("letter at 150 dpi") << u"letter.png"_s << "png"_ba << QSize(1240, 1754) << 8;
    QTest::newRow("photograph at 150 dpi") << u"photograph.jpg"_s << "jpeg"_ba << QSize(1240, 1754) << 32;
    QTest::newRow("form at 300 dpi") << u"form.tif"_s << "tiff"_ba << QSize(2480, 3508) << 1;
}

/// Checks the sample @p name of @p directory against the current data row.
void compare_with_row(const QString &directory)
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, format);
    QFETCH(const QSize, size);
    QFETCH(const int, depth);
    QImageReader reader(QDir(directory).filePath(name));

    const QByteArray formatOfFile = reader.format(); // forgotten by read()
    const QImage page = reader.read();

    QVERIFY2(!page.isNull(), qPrintable(reader.errorString()));
    QCOMPARE(formatOfFile, format);
    QCOMPARE(page.size(), size);
    QCOMPARE(page.depth(), depth);
    QCOMPARE(qRound(size.width() * 1000.0 / page.dotsPerMeterX()), MillimetresOfA4Width);
}

} // namespace

class tst_make_samples : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_made.isValid() && m_madeAgain.isValid());
        QProcess other;
        other.start(QStringLiteral(MAKE_SAMPLES), {m_madeAgain.path()});
        QCOMPARE(QProcess::execute(QStringLiteral(MAKE_SAMPLES), {m_made.path()}), 0);
        QVERIFY(other.waitForFinished(-1));
        QCOMPARE(other.exitCode(), 0);
    }

    void theToolMakesReadablePages_data() { add_samples(); }
    void theToolMakesReadablePages() { compare_with_row(m_made.path()); }

    void theShippedPagesAreReadable_data() { add_samples(); }
    void theShippedPagesAreReadable() { compare_with_row(QStringLiteral(SAMPLES_DIRECTORY)); }

    void theShippedPagesStaySmall()
    {
        const QFileInfoList files = QDir(QStringLiteral(SAMPLES_DIRECTORY)).entryInfoList(QDir::Files);
        qint64 total = 0;
        for (const QFileInfo &file : files) {
            QVERIFY2(file.size() < 400'000, qPrintable(file.fileName()));
            total += file.size();
        }
        QCOMPARE(files.size(), 3);
        QVERIFY(total < 1'000'000);
    }

    void twoRunsMakeTheSameBytes_data() { add_samples(); }
    void twoRunsMakeTheSameBytes()
    {
        QFETCH(const QString, name);
        QVERIFY(file_bytes(m_made.filePath(name)) == file_bytes(m_madeAgain.filePath(name)));
    }

    void thePhotographHasContinuousTone()
    {
        const QImage page(m_made.filePath(u"photograph.jpg"_s));
        QSet<QRgb> colors;
        for (int y = 250; y < 970; y += 3) {
            for (int x = 140; x < 1100; x += 3)
                colors << page.pixel(x, y);
        }

        QVERIFY2(colors.size() > 5'000, qPrintable(QString::number(colors.size())));
    }

    void aFolderThatIsNotThereFails()
    {
        QCOMPARE(QProcess::execute(QStringLiteral(MAKE_SAMPLES), {m_made.filePath(u"missing"_s)}), 1);
    }

private:
    QTemporaryDir m_made;
    QTemporaryDir m_madeAgain;
};

QTEST_GUILESS_MAIN(tst_make_samples)
#include "tst_make_samples.moc"

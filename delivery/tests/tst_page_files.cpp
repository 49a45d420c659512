#include "files.h"
#include "page_files.h"
#include "pictures.h"
#include "TemporaryHome.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QImage page_of(QImage::Format format, QSize size)
{
    QImage page = patterned_page(size).convertToFormat(format);
    page.setDotsPerMeterX(11811);
    page.setDotsPerMeterY(5906);
    return page;
}

/// What the toolkit makes of the page.
QByteArray toolkit_bytes(const TemporaryHome &home, const QImage &page, const char *format)
{
    const QString path = home.filePath(u"by the toolkit"_s);
    if (!page.save(path, format))
        qFatal("the toolkit cannot save the page");
    return file_bytes(path);
}

bool print(const QString &path, const QImage &page)
{
    QFile file;
    return create_print_file(path, file) && write_print_file(file, page);
}

void pages()
{
    QTest::addColumn<QImage>("page");
    constexpr QSize odd(37, 23);
    QTest::newRow("1 bit") << page_of(QImage::Format_Mono, odd);
    QTest::newRow("1 bit, lowest first") << page_of(QImage::Format_MonoLSB, odd);
    QImage inverted = page_of(QImage::Format_Mono, odd);
    inverted.setColorTable({0xff000000, 0xffffffff});
    QTest::newRow("1 bit, black first") << inverted;
    inverted.setColorTable({0xff0000ff, 0xff0000ff});
    QTest::newRow("1 bit, one colour twice") << inverted;
    QTest::newRow("8 bit") << page_of(QImage::Format_Indexed8, odd);
    QImage transparent = page_of(QImage::Format_Indexed8, odd);
    transparent.setColor(1, 0x80ff8000);
    QTest::newRow("8 bit with a transparent colour") << transparent;
    QTest::newRow("32 bit") << page_of(QImage::Format_RGB32, odd);
    QImage alpha = page_of(QImage::Format_ARGB32, odd);
    alpha.setPixel(3, 4, 0x10203040);
    QTest::newRow("32 bit with alpha") << alpha;
    QTest::newRow("one pixel") << page_of(QImage::Format_RGB32, {1, 1});
    QTest::newRow("whole bytes") << page_of(QImage::Format_RGB32, {64, 17});
}

} // namespace

class tst_page_files : public QObject
{
    Q_OBJECT

private slots:
    void editorFileIsTheToolkitsToTheByte_data() { pages(); }
    void editorFileIsTheToolkitsToTheByte()
    {
        QFETCH(const QImage, page);
        const TemporaryHome home;

        QVERIFY(write_editor_file(home.filePath(u"x"_s), page));

        QCOMPARE(file_bytes(home.filePath(u"x"_s)), toolkit_bytes(home, page, "BMP"));
    }

    void recogniserFileHasTheToolkitsPixels_data() { pages(); }
    void recogniserFileHasTheToolkitsPixels()
    {
        QFETCH(const QImage, page);
        const TemporaryHome home;

        QVERIFY(write_recogniser_file(home.filePath(u"x"_s), page));

        const QByteArray bytes = file_bytes(home.filePath(u"x"_s));
        QCOMPARE(QImage::fromData(bytes, "PBM"), QImage::fromData(toolkit_bytes(home, page, "PBM"), "PBM"));
        QVERIFY(bytes.startsWith("P4\n"));
    }

    // 10 columns: black, white by turns, and 6 bits that belong to no pixel.
    void unusedBitsOfTheRecogniserFileAreZero()
    {
        const TemporaryHome home;
        QImage page(10, 1, QImage::Format_Mono);
        page.setColorTable({0xff000000, 0xffffffff});
        page.scanLine(0)[0] = 0x55;
        page.scanLine(0)[1] = 0x40;

        QVERIFY(write_recogniser_file(home.filePath(u"x"_s), page));

        QCOMPARE(file_bytes(home.filePath(u"x"_s)), QByteArray("P4\n10 1\n\xaa\x80", 10));
    }

    void fileThatLiesThereIsWrittenOver()
    {
        const TemporaryHome home;
        const QImage page = page_of(QImage::Format_RGB32, {4, 4});
        for (const QString &name : {u"editor"_s, u"recogniser"_s})
            write_file(home.filePath(name), QByteArray(10'000, 'x'));

        QVERIFY(write_editor_file(home.filePath(u"editor"_s), page));
        QVERIFY(write_recogniser_file(home.filePath(u"recogniser"_s), page));

        QCOMPARE(file_bytes(home.filePath(u"editor"_s)).size(), 54 + 4 * 12);
        QCOMPARE(file_bytes(home.filePath(u"recogniser"_s)).size(), 7 + 4);
    }

    void withoutAPageNothingIsTouched()
    {
        const TemporaryHome home;
        const QString path = home.filePath(u"x"_s);

        QVERIFY(!write_editor_file(path, QImage()));
        QVERIFY(!write_recogniser_file(path, QImage()));

        QVERIFY(!QFile::exists(path));
        QVERIFY(!print(path, QImage()));
    }

    void placeThatTakesNoFileIsTold_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("no name") << QString();
        QTest::newRow("folder") << u"/tmp"_s;
        QTest::newRow("no such folder") << u"/nowhere/at/all/x"_s;
        QTest::newRow("full disk") << u"/dev/full"_s;
    }
    void placeThatTakesNoFileIsTold()
    {
        QFETCH(const QString, path);
        const QImage page = page_of(QImage::Format_RGB32, {40, 40});

        QVERIFY(!write_editor_file(path, page));
        QVERIFY(!write_recogniser_file(path, page));
        QVERIFY(!print(path, page));
    }

    void printFileHasAllPixelsAndIsItsOwnersAlone()
    {
        const TemporaryHome home;
        const QString path = home.filePath(u"x"_s);
        const QImage page = page_of(QImage::Format_RGB32, {40, 30});
        const mode_t former = ::umask(0);

        const bool isWritten = print(path, page);

        ::umask(former);
        QVERIFY(isWritten);
        QCOMPARE(QImage(path, "PNG"), page);
        struct stat status
        {
        };
        QCOMPARE(::stat(QFile::encodeName(path).constData(), &status), 0);
        QCOMPARE(status.st_mode & mode_t{07777}, mode_t{0600});
    }

    void printFileTouchesNothingThatLiesThere()
    {
        const TemporaryHome home;
        const QImage page = page_of(QImage::Format_RGB32, {4, 4});
        const QString target = home.filePath(u"target"_s);
        write_file(target, "mine");
        QVERIFY(QFile::link(target, home.filePath(u"link"_s)));
        QVERIFY(QFile::link(home.filePath(u"nowhere"_s), home.filePath(u"loose link"_s)));

        QVERIFY(!print(target, page));
        QVERIFY(!print(home.filePath(u"link"_s), page));
        QVERIFY(!print(home.filePath(u"loose link"_s), page));

        QCOMPARE(file_bytes(target), QByteArray("mine"));
        QCOMPARE(home.filesIn(), (QStringList{u"link"_s, u"loose link"_s, u"target"_s}));
    }

    void printFileNamesLookLikeTheCLibrarysAndDiffer()
    {
        static const QRegularExpression form(u"^/tmp/file[A-Za-z0-9]{6}$"_s);
        QSet<QString> names;
        for (int i = 0; i < 200; ++i) {
            const QString name = print_file_name();
            QVERIFY2(form.match(name).hasMatch(), qPrintable(name));
            QVERIFY(!QFileInfo::exists(name));
            names.insert(name);
        }
        QCOMPARE(names.size(), 200);
    }
};

QTEST_GUILESS_MAIN(tst_page_files)
#include "tst_page_files.moc"

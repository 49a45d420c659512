#include "path_strings.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cstring>
#include <string>

using namespace Qt::StringLiterals;

namespace {

/// Another current directory while the object lives.
class CurrentDirectory
{
public:
    explicit CurrentDirectory(const QString &path)
    {
        if (!QDir::setCurrent(path))
            qFatal("CurrentDirectory - no %s", qPrintable(path));
    }
    ~CurrentDirectory() { QDir::setCurrent(m_former); }
    Q_DISABLE_COPY_MOVE(CurrentDirectory)

private:
    QString m_former = QDir::currentPath();
};

constexpr char Untouched = '\x7e';

/// A buffer that shows what was written past its end.
struct Buffer
{
    explicit Buffer(std::size_t usable) : size(usable) { bytes.fill(Untouched); }

    [[nodiscard]] char *data() { return bytes.data(); }
    [[nodiscard]] bool isIntactBehind() const { return bytes.at(size) == Untouched; }

    std::array<char, 64> bytes = {};
    std::size_t size;
};

} // namespace

class tst_path_strings : public QObject
{
    Q_OBJECT

private slots:
    void copyIsCutToItsBuffer_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("size");
        QTest::addColumn<QByteArray>("copy");

        QTest::newRow("fits") << QByteArray("abc") << 8 << QByteArray("abc");
        QTest::newRow("fits to the byte") << QByteArray("abc") << 4 << QByteArray("abc");
        QTest::newRow("one too long") << QByteArray("abcd") << 4 << QByteArray("abc");
        QTest::newRow("no room but for the end") << QByteArray("abcd") << 1 << QByteArray("");
        QTest::newRow("empty") << QByteArray("") << 4 << QByteArray("");
    }

    void copyIsCutToItsBuffer()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const int, size);
        Buffer buffer(static_cast<std::size_t>(size));

        QVERIFY(copy_str(buffer.data(), text.constData(), buffer.size) == buffer.data());

        QTEST(QByteArray(buffer.data()), "copy");
        QVERIFY(buffer.isIntactBehind());
    }

    void bufferOfSize0IsLeftAlone()
    {
        Buffer buffer(0);

        copy_str(buffer.data(), "abc", 0);
        str_lower("abc", buffer.data(), 0);
        str_upper("abc", buffer.data(), -1);
        join_path("/a", "b", buffer.data(), 0);
        abs_path("a", buffer.data(), 0);

        QVERIFY(buffer.isIntactBehind());
    }

    void nullTextsCountAsEmpty()
    {
        Buffer buffer(32);

        QCOMPARE(copy_str(buffer.data(), nullptr, buffer.size), "");
        QCOMPARE(str_lower(nullptr, buffer.data(), 32), "");
        QCOMPARE(join_path("/a", nullptr, buffer.data(), buffer.size), "/a/");
        QVERIFY(strip_newline(nullptr) == nullptr);
    }

    void oneNewlineIsRemovedFromTheEnd_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("stripped");

        QTest::newRow("none") << QByteArray("abc") << QByteArray("abc");
        QTest::newRow("one") << QByteArray("abc\n") << QByteArray("abc");
        QTest::newRow("two") << QByteArray("abc\n\n") << QByteArray("abc\n");
        QTest::newRow("in the middle") << QByteArray("a\nbc") << QByteArray("a\nbc");
        QTest::newRow("carriage return stays") << QByteArray("abc\r\n") << QByteArray("abc\r");
        QTest::newRow("nothing else") << QByteArray("\n") << QByteArray("");
        QTest::newRow("empty") << QByteArray("") << QByteArray("");
    }

    void oneNewlineIsRemovedFromTheEnd()
    {
        QFETCH(QByteArray, text);

        QVERIFY(strip_newline(text.data()) == text.data());

        QTEST(QByteArray(text.constData()), "stripped");
    }

    void relativePathGetsTheCurrentDirectory_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("behindTheDirectory");

        QTest::newRow("name") << QByteArray("tool") << QByteArray("/tool");
        QTest::newRow("with directories") << QByteArray("bin/tool") << QByteArray("/bin/tool");
        QTest::newRow("./ goes") << QByteArray("./tool") << QByteArray("/tool");
        QTest::newRow("./ goes once") << QByteArray("././tool") << QByteArray("/./tool");
        QTest::newRow("../ stays") << QByteArray("../tool") << QByteArray("/../tool");
        QTest::newRow("empty") << QByteArray("") << QByteArray("/");
        QTest::newRow("dot alone") << QByteArray(".") << QByteArray("/.");
    }

    void relativePathGetsTheCurrentDirectory()
    {
        QFETCH(const QByteArray, path);
        QFETCH(const QByteArray, behindTheDirectory);
        const QTemporaryDir directory;
        const CurrentDirectory current(directory.path());

        const QByteArray result = abs_path_static(path.constData());

        QCOMPARE(result, QDir::currentPath().toLocal8Bit() + behindTheDirectory);
    }

    void absolutePathStandsAsItIs() { QCOMPARE(abs_path_static("/opt/../pkg/./tool"), "/opt/../pkg/./tool"); }

    void belowTheRootDirectoryNoSlashStandsInFront()
    {
        const CurrentDirectory current(u"/"_s);

        QCOMPARE(abs_path_static("bin/tool"), "bin/tool");
        QCOMPARE(abs_path_static("./tool"), "tool");
    }

    void withoutACurrentDirectoryThePathStaysRelative()
    {
        QTemporaryDir directory;
        const CurrentDirectory current(directory.path());
        QVERIFY(directory.remove());

        QCOMPARE(abs_path_static("./bin/tool"), "bin/tool");
    }

    void currentDirectoryThatDoesNotFitIsLeftOut()
    {
        const CurrentDirectory current(u"/usr/share"_s);
        Buffer exact(sizeof "/usr/share");
        Buffer small(sizeof "/usr/share" - 1);

        QCOMPARE(abs_path("tool", exact.data(), exact.size), "/usr/share");
        QVERIFY(exact.isIntactBehind());
        QCOMPARE(abs_path("tool", small.data(), small.size), "tool");
        QVERIFY(small.isIntactBehind());
    }

    void nullPathOrBufferGivesAnEmptyString()
    {
        Buffer buffer(8);

        QCOMPARE(abs_path(nullptr, buffer.data(), buffer.size), "");
        QCOMPARE(abs_path("tool", nullptr, 8), "");
        QCOMPARE(abs_path_static(nullptr), "");
    }

    void longPathIsCut()
    {
        const std::string path = '/' + std::string(5000, 'x');

        QCOMPARE(std::strlen(abs_path_static(path.c_str())), std::size_t{4095});
        QCOMPARE(std::strlen(abs_path_static(path.c_str() + 1)), std::size_t{4095});
        QCOMPARE(std::strlen(join_path_static(path.c_str(), "OEM.ini")), std::size_t{4095});
    }

    void pathsAreJoinedByOneSlash_data()
    {
        QTest::addColumn<QByteArray>("dir");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("joined");

        QTest::newRow("none there") << QByteArray("/a") << QByteArray("b") << QByteArray("/a/b");
        QTest::newRow("one there") << QByteArray("/a/") << QByteArray("b") << QByteArray("/a/b");
        QTest::newRow("two there") << QByteArray("/a//") << QByteArray("b") << QByteArray("/a//b");
        QTest::newRow("no directory") << QByteArray("") << QByteArray("b") << QByteArray("/b");
        QTest::newRow("no name") << QByteArray("/a") << QByteArray("") << QByteArray("/a/");
        QTest::newRow("name cut") << QByteArray("/aaaa") << QByteArray("bbbb") << QByteArray("/aaaa/b");
        QTest::newRow("directory cut") << QByteArray("/aaaaaaaa") << QByteArray("b") << QByteArray("/aaaaaa");
        QTest::newRow("room for the slash alone") << QByteArray("/aaaaa") << QByteArray("b") << QByteArray("/aaaaa/");
    }

    void pathsAreJoinedByOneSlash()
    {
        QFETCH(const QByteArray, dir);
        QFETCH(const QByteArray, name);
        Buffer buffer(8);

        QVERIFY(join_path(dir.constData(), name.constData(), buffer.data(), buffer.size) == buffer.data());

        QTEST(QByteArray(buffer.data()), "joined");
        QVERIFY(buffer.isIntactBehind());
    }

    void casesChangeByteByByte()
    {
        Buffer buffer(8);

        QCOMPARE(str_lower("aB-9\xc4", buffer.data(), 8), "ab-9\xc4");
        QCOMPARE(str_upper("aB-9\xc4", buffer.data(), 8), "AB-9\xc4");
        QCOMPARE(str_upper("abcdefghij", buffer.data(), 8), "ABCDEFG");
        QVERIFY(buffer.isIntactBehind());
    }

    void fixedBuffersOfTheCasesHold1023Characters()
    {
        const std::string longText(5000, 'x');

        QCOMPARE(std::strlen(str_lower_static(longText.c_str())), std::size_t{1023});
        QCOMPARE(std::strlen(str_upper_static(longText.c_str())), std::size_t{1023});
        QVERIFY(str_lower_static("a") != str_upper_static("a"));
    }
};

QTEST_APPLESS_MAIN(tst_path_strings)
#include "tst_path_strings.moc"

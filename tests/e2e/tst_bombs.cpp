#include "bombs.h"
#include "ImageManagerProgram.h"

#include "files.h"

#include <QFile>
#include <QImageReader>
#include <QTest>

#include <functional>

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// Small files that unpack to more than there is: a box, and the program goes on.
class tst_bombs : public QObject
{
    Q_OBJECT

private slots:
    void bombsAreGoodPicturesIfTheyAreSmall_data();
    void bombsAreGoodPicturesIfTheyAreSmall();
    void bombCostsABoxAlone_data();
    void bombCostsABoxAlone();
};

namespace {

using BombMaker = std::function<QByteArray(quint32 side)>;

constexpr qint64 MiB = 1048576;
constexpr qint64 SmallFile = 4 * MiB; ///< bytes at most, of what unpacks to hundreds of times as much
constexpr qint64 Leeway = 512 * MiB; ///< that the program may take beside what it has

/// @param largest  the longest side that the format has
void add_bombs(quint32 largest)
{
    QTest::addColumn<BombMaker>("make");
    QTest::addColumn<QString>("name");
    QTest::addColumn<quint32>("side");

    const auto row = [](const char *format, const BombMaker &make, const QString &name, quint32 side) {
        QTest::newRow(format) << make << name << side;
    };
    constexpr quint32 LargestWebp = 16383;
    row("PNG", png_bomb, u"bomb.png"_s, largest);
    row("TIFF", tiff_bomb, u"bomb.tif"_s, largest);
    row(
        "GIF", [](quint32 side) { return gif_bomb(static_cast<quint16>(side)); }, u"bomb.gif"_s, largest);
    row("WebP", webp_bomb, u"bomb.webp"_s, std::min(largest, LargestWebp));
    row("animated WebP", animated_webp_bomb, u"bomb.webp"_s, largest);
}

qint64 address_space_of(qint64 process)
{
    QFile statm(u"/proc/%1/statm"_s.arg(process));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readLine().split(' ').constFirst().toLongLong() * ::sysconf(_SC_PAGESIZE);
}

} // namespace

void tst_bombs::bombsAreGoodPicturesIfTheyAreSmall_data()
{
    add_bombs(300);
}

void tst_bombs::bombsAreGoodPicturesIfTheyAreSmall()
{
    QFETCH(const BombMaker, make);
    QFETCH(const QString, name);
    QFETCH(const quint32, side);
    const Place place;
    write_file(place.path(name), make(side));

    const QImage picture(place.path(name));

    const auto pixels = static_cast<int>(side);
    QCOMPARE(picture.size(), QSize(pixels, pixels));
}

void tst_bombs::bombCostsABoxAlone_data()
{
    add_bombs(60000);
}

void tst_bombs::bombCostsABoxAlone()
{
    QFETCH(const BombMaker, make);
    QFETCH(const QString, name);
    QFETCH(const quint32, side);
    const Place place;
    const QByteArray bomb = make(side);
    QVERIFY(bomb.size() < SmallFile);
    write_file(place.path(name), bomb);
    ImageManagerProgram program(place);
    QVERIFY(program.open({place.page(u"a.bmp"_s)}));
    const qint64 process = program.process().processId();
    const auto bound = static_cast<rlim_t>(address_space_of(process) + Leeway);
    const rlimit limit{.rlim_cur = bound, .rlim_max = bound};
    QCOMPARE(::prlimit(static_cast<pid_t>(process), RLIMIT_AS, &limit, nullptr), 0);

    ImageManagerProgram other(place);
    QVERIFY(other.start({place.path(name), place.page(u"b.bmp"_s)}));
    QCOMPARE(other.process().waitForExit(), 0);

    const MessageBox box = program.answer(u"OK"_s);
    QCOMPARE(box.title, u"Load failed"_s);
    QCOMPARE(box.text, u"Error loading file"_s);
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}), Program::patienceMs);
    QCOMPARE(program.close(), 0);
}

QTEST_GUILESS_MAIN(tst_bombs)
#include "tst_bombs.moc"

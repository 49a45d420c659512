// The history of the window when its files are not where it put them, or cannot go where they belong.

#include "files.h"
#include "NextDialog.h"
#include "WindowFixture.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QString snapshot_path(const WindowFixture &fixture, int index)
{
    return fixture.home.filePath(u"tmp/"_s + fixture.home.filesIn(u"tmp"_s).at(index));
}

/// What comes over a snapshot behind the program's back. It answers whether that went well.
using Damage = std::function<bool(const QString &path)>;

Damage cut_to(qint64 bytes)
{
    return [bytes](const QString &path) { return QFile::resize(path, bytes); };
}

bool garble(const QString &path)
{
    QByteArray bytes(QFileInfo(path).size(), '\0');
    QRandomGenerator random(5);
    for (char &byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    write_file(path, bytes);
    return true;
}

void add_damages()
{
    QTest::addColumn<Damage>("damage");

    const auto row = [](const char *name, const Damage &damage) { QTest::newRow(name) << damage; };
    row("gone", [](const QString &path) { return QFile::remove(path); });
    row("empty", cut_to(0));
    row("cut in its header", cut_to(40));
    row("cut in its rows", cut_to(5000));
    row("without its last byte", cut_to(54 + 64 * 48 * 3 - 1));
    row("garbled", garble);
    row("a folder", [](const QString &path) { return QFile::remove(path) && QDir().mkdir(path); });
    row("a link", [](const QString &path) {
        const QString aside = path + ".aside"_L1;
        return QFile::rename(path, aside) && QFile::link(aside, path);
    });
}

} // namespace

class tst_ImageManager_lost_snapshots : public QObject
{
    Q_OBJECT

private slots:
    void undoToASnapshotThatIsNoneLeavesPageAndHistory_data() { add_damages(); }
    void undoToASnapshotThatIsNoneLeavesPageAndHistory()
    {
        QFETCH(const Damage, damage);
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s);
        fixture.edit(u"rotate_180"_s);
        const QImage page = fixture.page();
        QVERIFY(damage(snapshot_path(fixture, 1)));

        fixture.action(u"edit_undo"_s)->trigger();

        QVERIFY(compare_pictures(fixture.page(), page));
        QVERIFY(fixture.enabled(u"edit_undo"_s));
        QVERIFY(fixture.window.isEnabled());
        QCOMPARE(fixture.window.cursor().shape(), Qt::ArrowCursor);
    }

    void redoToASnapshotThatIsNoneLeavesPageAndHistory_data() { add_damages(); }
    void redoToASnapshotThatIsNoneLeavesPageAndHistory()
    {
        QFETCH(const Damage, damage);
        WindowFixture fixture(u"a.png"_s);
        const QImage first = fixture.page();
        fixture.edit(u"image_invert"_s);
        fixture.edit(u"rotate_180"_s);
        fixture.action(u"edit_undo"_s)->trigger();
        const QImage page = fixture.page();
        QVERIFY(damage(snapshot_path(fixture, 2)));

        fixture.action(u"edit_redo"_s)->trigger();

        QVERIFY(compare_pictures(fixture.page(), page));
        QVERIFY(fixture.enabled(u"edit_redo"_s));
        QVERIFY(fixture.window.isEnabled());
        QCOMPARE(fixture.window.cursor().shape(), Qt::ArrowCursor);
        fixture.action(u"edit_undo"_s)->trigger();
        QVERIFY(compare_pictures(fixture.page(), first));
    }

    void aSnapshotOfAnotherPictureIsTakenAsItIs()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s);
        const QImage other = patterned_page(QSize(20, 30));
        QVERIFY(other.save(snapshot_path(fixture, 0), "BMP"));

        fixture.action(u"edit_undo"_s)->trigger();

        QVERIFY(compare_pictures(fixture.page(), other));
        QVERIFY(fixture.window.isEnabled());
    }

    void aDirectoryThatIsRemovedComesBackWithTheNextSnapshot()
    {
        WindowFixture fixture(u"a.png"_s);
        const QImage page = fixture.page();
        QVERIFY(QDir(fixture.home.filePath(u"tmp"_s)).removeRecursively());

        fixture.edit(u"image_invert"_s);

        QCOMPARE(fixture.home.filesIn(u"tmp"_s).size(), 1);
        fixture.action(u"edit_undo"_s)->trigger();
        QVERIFY(compare_pictures(fixture.page(), page));
    }

    void withoutADirectoryTheSnapshotsGoIntoTheHome()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"tmp"_s), {}); // in the way, before there is a window
        const QString path = home.filePath(u"a.png"_s);
        QVERIFY(patterned_page(QSize(64, 48)).save(path));
        ImageManager window;
        QVERIFY(window.load_file(path, {}, false));
        auto *const view = qobject_cast<ImageDocumentView *>(window.findChild<QTabWidget *>()->currentWidget());
        const QImage page = view->document()->page(1);
        const NextDialog dialog([](const QDialog &shown) { WindowFixture::pressOk(shown); });

        window.findChild<QAction *>(u"image_invert"_s)->trigger();

        const QStringList snapshots = QDir(home.path()).entryList({u"*00000001.bmp"_s}, QDir::Files);
        QCOMPARE(snapshots.size(), 1);
        window.edit_undo();
        QVERIFY(compare_pictures(view->document()->page(1), page));
    }
};

QTEST_MAIN(tst_ImageManager_lost_snapshots)
#include "tst_ImageManager_lost_snapshots.moc"

// The history of the window when its files are not where it put them, or cannot go where they belong.

#include "NextDialog.h"
#include "WindowFixture.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void edit(const ImageManager &window, const QString &action)
{
    const NextDialog dialog([](QDialog &preview) { preview.findChild<QPushButton *>(u"my_ok_btn"_s)->click(); });
    window.findChild<QAction *>(action)->trigger();
}

QImage page_of(const ImageManager &window)
{
    const auto *const view = qobject_cast<const ImageDocumentView *>(window.findChild<QTabWidget *>()->currentWidget());
    return std::as_const(*view->document()).page(1);
}

QString snapshot_path(const WindowFixture &fixture, int index)
{
    return fixture.home.filePath(u"tmp/"_s + fixture.home.filesIn(u"tmp"_s).at(index));
}

} // namespace

class tst_ImageManager_lost_snapshots : public QObject
{
    Q_OBJECT

private slots:
    void undoToASnapshotThatIsNoneLeavesPageAndHistory_data()
    {
        QTest::addColumn<qint64>("keptBytes");

        QTest::newRow("gone") << qint64{-1};
        QTest::newRow("empty") << qint64{0};
        QTest::newRow("cut in its header") << qint64{40};
        QTest::newRow("cut in its rows") << qint64{5000};
        QTest::newRow("without its last byte") << qint64{54 + 64 * 48 * 3 - 1};
    }

    void undoToASnapshotThatIsNoneLeavesPageAndHistory()
    {
        QFETCH(const qint64, keptBytes);
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        edit(fixture.window, u"image_invert"_s);
        edit(fixture.window, u"rotate_180"_s);
        const QImage page = page_of(fixture.window);
        const QString second = snapshot_path(fixture, 1);
        QVERIFY(keptBytes < 0 ? QFile::remove(second) : QFile::resize(second, keptBytes));

        fixture.action(u"edit_undo"_s)->trigger();

        QVERIFY(compare_pictures(page_of(fixture.window), page));
        QVERIFY(fixture.enabled(u"edit_undo"_s));
        QVERIFY(fixture.window.isEnabled());
        QCOMPARE(fixture.window.cursor().shape(), Qt::ArrowCursor);
    }

    void aSnapshotOfAnotherPictureIsTakenAsItIs()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        edit(fixture.window, u"image_invert"_s);
        const QImage other = patterned_page(QSize(20, 30));
        QVERIFY(other.save(snapshot_path(fixture, 0), "BMP"));

        fixture.action(u"edit_undo"_s)->trigger();

        QVERIFY(compare_pictures(page_of(fixture.window), other));
        QVERIFY(fixture.window.isEnabled());
    }

    void aDirectoryThatIsRemovedComesBackWithTheNextSnapshot()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage page = page_of(fixture.window);
        QVERIFY(QDir(fixture.home.filePath(u"tmp"_s)).removeRecursively());

        edit(fixture.window, u"image_invert"_s);

        QCOMPARE(fixture.home.filesIn(u"tmp"_s).size(), 1);
        fixture.action(u"edit_undo"_s)->trigger();
        QVERIFY(compare_pictures(page_of(fixture.window), page));
    }

    void withoutADirectoryTheSnapshotsGoIntoTheHome()
    {
        const TemporaryHome home;
        QFile inTheWay(home.filePath(u"tmp"_s));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        const QString path = home.filePath(u"a.png"_s);
        QVERIFY(patterned_page(QSize(64, 48)).save(path));
        ImageManager window;
        QVERIFY(window.load_file(path, {}, false));
        const QImage page = page_of(window);

        edit(window, u"image_invert"_s);

        const QStringList snapshots = QDir(home.path()).entryList({u"*00000001.bmp"_s}, QDir::Files);
        QCOMPARE(snapshots.size(), 1);
        window.edit_undo();
        QVERIFY(compare_pictures(page_of(window), page));
    }
};

QTEST_MAIN(tst_ImageManager_lost_snapshots)
#include "tst_ImageManager_lost_snapshots.moc"

#include "noise_pages.h"
#include "page_files.h"
#include "private_mounts.h"
#include "TemporaryHome.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

using WritePage = bool (*)(const QString &path, const QImage &page);

namespace {

bool write_new_print_file(const QString &path, const QImage &page)
{
    QFile file;
    return create_print_file(path, file) && write_print_file(file, page);
}

/// It takes much room in every format.
QImage large_page()
{
    return noise_page({1600, 1200});
}

} // namespace

/// Places that take no file, or not all of it.
class tst_page_files_places : public QObject
{
    Q_OBJECT

private slots:
    void placeThatCannotBeWrittenToIsTold_data() { writers(); }
    void placeThatCannotBeWrittenToIsTold()
    {
        QFETCH(const WritePage, write);
        const TemporaryHome home;
        QDir(home.path()).mkdir(u"place"_s);
        const ReadOnlyPlace place(home.filePath(u"place"_s));

        QVERIFY(!write(home.filePath(u"place/x"_s), large_page()));

        QVERIFY(home.filesIn(u"place"_s).isEmpty());
    }

    void fullDiskIsTold_data() { writers(); }
    void fullDiskIsTold()
    {
        QFETCH(const WritePage, write);
        const SmallDisk disk;
        QFile rest(disk.filePath(u"rest"_s));
        constexpr qint64 room = 102400; // less than the smallest of the three files
        QVERIFY(rest.open(QIODevice::WriteOnly) && rest.write(QByteArray(SmallDisk::Bytes - room, 'x')) > 0
                && rest.flush());

        QVERIFY(!write(disk.filePath(u"x"_s), large_page()));
    }

    void linkIsFollowedToItsTarget_data()
    {
        QTest::addColumn<WritePage>("write");
        QTest::newRow("editor") << WritePage(write_editor_file);
        QTest::newRow("recogniser") << WritePage(write_recogniser_file);
    }
    void linkIsFollowedToItsTarget()
    {
        QFETCH(const WritePage, write);
        const TemporaryHome home;
        QVERIFY(QFile::link(home.filePath(u"target"_s), home.filePath(u"link"_s)));

        QVERIFY(write(home.filePath(u"link"_s), large_page()));

        QVERIFY(QFileInfo(home.filePath(u"link"_s)).isSymLink());
        QVERIFY(QFileInfo(home.filePath(u"target"_s)).size() > 0);
    }

private:
    static void writers()
    {
        QTest::addColumn<WritePage>("write");
        QTest::newRow("editor") << WritePage(write_editor_file);
        QTest::newRow("recogniser") << WritePage(write_recogniser_file);
        QTest::newRow("print") << WritePage(write_new_print_file);
    }
};

TEST_MAIN_APART(QCoreApplication, tst_page_files_places, leave_common_mounts)

#include "tst_page_files_places.moc"

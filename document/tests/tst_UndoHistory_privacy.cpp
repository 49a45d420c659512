// The snapshots of the history among the files of others, and what of a page they keep.

#include "history_steps.h"
#include "image_files.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cstdio>
#include <ctime>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_UndoHistory_privacy : public QObject
{
    Q_OBJECT

private slots:
    void directoryAndFilesAreTheUsersAloneWhateverTheMask_data();
    void directoryAndFilesAreTheUsersAloneWhateverTheMask();
    void namesThatAreTakenArePassedOver();
    void historiesOfOneSecondKeepApart();
    void snapshotThatSomethingElseTookThePlaceOfIsAFailedStep();
    void transparencyOutlivesUndoRedoAndRollback();
};

void tst_UndoHistory_privacy::directoryAndFilesAreTheUsersAloneWhateverTheMask_data()
{
    QTest::addColumn<mode_t>("mask");

    QTest::newRow("none") << mode_t{0};
    QTest::newRow("usual") << mode_t{022};
    QTest::newRow("takes the owner's rights") << mode_t{0722};
}

void tst_UndoHistory_privacy::directoryAndFilesAreTheUsersAloneWhateverTheMask()
{
    QFETCH(const mode_t, mask);
    const TemporaryHome home;
    const mode_t former = ::umask(mask);
    UndoHistory history;
    const bool isInserted = insert_page(history, Qt::red);
    ::umask(former);
    QVERIFY(isInserted);

    const auto modeOf = [](const QString &path) {
        struct stat status = {};
        return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode : mode_t{0};
    };
    QCOMPARE(modeOf(home.filePath(u"tmp"_s)), mode_t{S_IFDIR | 0700});
    QCOMPARE(modeOf(snapshot_path(home, u"00000001"_s)), mode_t{S_IFREG | 0600});
    QCOMPARE(undo(history), QColor(Qt::red));
}

void tst_UndoHistory_privacy::namesThatAreTakenArePassedOver()
{
    const TemporaryHome home;
    const QString precious = home.filePath(u"precious"_s);
    write_file(precious, "precious");
    QString base;
    {
        UndoHistory history;
        insert_pages(history, {Qt::red});
        base = snapshot_path(home, u"00000001"_s);
        const auto planted = [&base](const char *number) {
            return QFile::encodeName(QString(base).replace("00000001"_L1, QLatin1StringView(number)));
        };
        QCOMPARE(::symlink(QFile::encodeName(precious).constData(), planted("00000002").constData()), 0);
        QCOMPARE(::mkfifo(planted("00000003").constData(), 0600), 0);
        QVERIFY(QDir().mkdir(QFile::decodeName(planted("00000004"))));
        write_file(QFile::decodeName(planted("00000005")), "of another history");

        QVERIFY(insert_page(history, Qt::green));

        QVERIFY(!snapshot_path(home, u"00000006"_s).isEmpty());
        QCOMPARE(undo(history), QColor(Qt::green));
        QCOMPARE(undo(history), QColor(Qt::red));
    }

    QCOMPARE(file_bytes(precious), "precious");
    QCOMPARE(numbers_in(home), (QStringList{u"00000002"_s, u"00000003"_s, u"00000005"_s})); // the directory is no file
    QCOMPARE(file_bytes(base.replace("00000001"_L1, "00000005"_L1)), "of another history");
}

void tst_UndoHistory_privacy::historiesOfOneSecondKeepApart()
{
    const TemporaryHome home;
    std::unique_ptr<UndoHistory> first;
    std::unique_ptr<UndoHistory> second;
    std::time_t before = 0;
    do {
        before = std::time(nullptr);
        first = std::make_unique<UndoHistory>();
        second = std::make_unique<UndoHistory>();
    } while (std::time(nullptr) != before);

    insert_pages(*first, {Qt::red, Qt::green});
    insert_pages(*second, {Qt::blue, Qt::yellow});

    QCOMPARE(undo(*first, 1), QColor(Qt::red));
    first.reset();
    QCOMPARE(undo(*second), QColor(Qt::yellow));
    QCOMPARE(undo(*second), QColor(Qt::blue));
}

void tst_UndoHistory_privacy::snapshotThatSomethingElseTookThePlaceOfIsAFailedStep()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green});
    const QByteArray path = QFile::encodeName(snapshot_path(home, u"00000002"_s));
    const QByteArray aside = path + ".aside";
    QCOMPARE(::rename(path.constData(), aside.constData()), 0);

    QCOMPARE(::symlink(aside.constData(), path.constData()), 0);
    QCOMPARE(undo(history), QColor());
    QCOMPARE(::unlink(path.constData()), 0);
    QCOMPARE(::mkfifo(path.constData(), 0600), 0);
    QCOMPARE(undo(history), QColor());
    QCOMPARE(::unlink(path.constData()), 0);

    QCOMPARE(::rename(aside.constData(), path.constData()), 0);
    QCOMPARE(undo(history), QColor(Qt::green));
}

void tst_UndoHistory_privacy::transparencyOutlivesUndoRedoAndRollback()
{
    const TemporaryHome home;
    const auto pageWithAlpha = [](int alpha) {
        QImage page(PageSize, QImage::Format_ARGB32);
        page.fill(QColor(10, 20, 30, alpha));
        return page;
    };
    UndoHistory history;
    for (const int alpha : {0, 100, 200})
        QVERIFY(history.insert(pageWithAlpha(alpha), PageSize, 1.0, u"turn"_s));
    StepOutputs step;

    QVERIFY(history.undo(&step.image, &step.size, &step.zoom, 1, nullptr));
    QCOMPARE(step.image, pageWithAlpha(100));
    QVERIFY(history.redo(&step.image, &step.size, &step.zoom, 0, nullptr));
    QCOMPARE(step.image, pageWithAlpha(200));
    QVERIFY(history.insert(step.image, PageSize, 1.0, u"turn"_s));
    QVERIFY(history.rollback(&step.image, &step.size, &step.zoom, 0, nullptr));
    QCOMPARE(step.image, pageWithAlpha(200));
    QCOMPARE(step.image.format(), QImage::Format_ARGB32);
}

QTEST_GUILESS_MAIN(tst_UndoHistory_privacy)
#include "tst_UndoHistory_privacy.moc"

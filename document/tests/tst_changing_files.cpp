#define QT_STATICPLUGIN // the reader below is part of this program

#include "colored_documents.h"
#include "file_state.h"
#include "image_files.h"
#include "ImageDocument.h"

#include <QDateTime>
#include <QFile>
#include <QImageIOPlugin>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// What happens to the file while the reader below is at work.
std::function<void()> &meanwhile()
{
    static std::function<void()> action;
    return action;
}

/// A reader that shows a red pixel, and lets the test do something to the file first.
class ChangingReader : public QImageIOHandler
{
public:
    [[nodiscard]] bool canRead() const override { return true; }
    bool read(QImage *image) override
    {
        meanwhile()();
        *image = page_of(red);
        return true;
    }
};

void append(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class ChangingPlugin : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "changing_files.json")

public:
    [[nodiscard]] Capabilities capabilities(QIODevice * /*device*/, const QByteArray &format) const override
    {
        return format == "changing" ? CanRead : Capabilities();
    }
    [[nodiscard]] QImageIOHandler *create(QIODevice *device, const QByteArray &format) const override
    {
        auto *const reader = new ChangingReader; // the toolkit's reader takes it
        reader->setDevice(device);
        reader->setFormat(format);
        return reader;
    }
};

Q_IMPORT_PLUGIN(ChangingPlugin)

/// Files that another program changes while they are read.
class tst_changing_files : public QObject
{
    Q_OBJECT

private slots:
    void fileThatStaysLoads();
    void fileThatChangesWhileItIsReadFails_data();
    void fileThatChangesWhileItIsReadFails();
    void pagesReadBeforeAChangeStay();
    void stateTellsSizeAndTime();

private:
    [[nodiscard]] QString path() const { return directory.filePath(u"page"_s); }

    QTemporaryDir directory;
};

void tst_changing_files::fileThatStaysLoads()
{
    write_file(path(), "some bytes");
    meanwhile() = [] {};

    const ImageDocument document(path(), u"changing"_s);

    QCOMPARE(colors_of(document), QList<QRgb>{red});
}

void tst_changing_files::fileThatChangesWhileItIsReadFails_data()
{
    QTest::addColumn<std::function<void(const QString &)>>("change");

    const auto row = [](const char *name, const std::function<void(const QString &)> &change) {
        QTest::newRow(name) << change;
    };
    row("shorter", [](const QString &file) { QVERIFY(QFile::resize(file, 4)); });
    row("empty", [](const QString &file) { QVERIFY(QFile::resize(file, 0)); });
    row("longer", [](const QString &file) { append(file, "more"); });
    row("other bytes of the same number", [](const QString &file) {
        QFile written(file);
        QVERIFY(written.open(QIODevice::ReadWrite));
        QCOMPARE(written.write("SOME"), 4);
        // The clock of a file system has ticks; another time than the file had is what counts.
        QVERIFY(written.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));
    });
}

void tst_changing_files::fileThatChangesWhileItIsReadFails()
{
    QFETCH(const std::function<void(const QString &)>, change);
    write_file(path(), "some bytes");
    meanwhile() = [&] { change(path()); };

    const ImageDocument document(path(), u"changing"_s);

    QVERIFY(document.isEmpty());
    QCOMPARE(document.loadStatus, 2);
    QVERIFY(!document.isModified());
    QCOMPARE(document.filePath(), path());
}

void tst_changing_files::pagesReadBeforeAChangeStay()
{
    QVERIFY(document_of({red, green, blue})->save(path(), u"TIFF"_s));
    ImageDocument document({}, {});
    connect(&document, &ImageDocument::modifiedStateChanged, this, [&] {
        if (document.pageCount() == 2)
            append(path(), "more"); // so that the third page can still be decoded
    });

    QVERIFY(!document.load(path(), u"TIFF"_s));

    QCOMPARE(colors_of(document), (QList<QRgb>{red, green}));
    QVERIFY(document.isModified());
}

void tst_changing_files::stateTellsSizeAndTime()
{
    write_file(path(), "12345");
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime time(QDate(2020, 1, 2), QTime(3, 4, 5, 678), Qt::UTC);
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));

    const FileState state = file_state(file.handle());

    QCOMPARE(state.bytes, 5);
    QCOMPARE(state.modifiedSeconds, time.toSecsSinceEpoch());
    QCOMPARE(state.modifiedNanoseconds, 678'000'000);
    QVERIFY(state == file_state(file.handle()));
    QCOMPARE(file_state(-1).bytes, -1);
}

QTEST_GUILESS_MAIN(tst_changing_files)
#include "tst_changing_files.moc"

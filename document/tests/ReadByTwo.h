#pragma once

#include "image_files.h"
#include "ImageDocument.h"
#include "tiff_codec.h"
#include "tiff_diagnostics.h"
#include "tiff_files.h"
#include "tiff_pages_ahead.h"

#include "pictures.h"
#include "threads.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <tiffio.h>
#include <unistd.h>

/// What a load gives, and all that is told on the way.
struct Loaded
{
    QList<QImage> pages;
    bool isWhole = false;
    QStringList lines;
};

inline QStringList heardLines;
inline bool hasStrangerSpoken = false;

inline void hear(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &line)
{
    heardLines.append(line);
    hasStrangerSpoken = hasStrangerSpoken || QThread::currentThread() != QCoreApplication::instance()->thread();
}

/// One page after the other, by one thread.
inline Loaded load_plainly(const QString &path)
{
    Loaded loaded;
    heardLines.clear();
    const TiffHandle tif = open_tiff(path, "rm");
    QImage page;
    while (tif && readTiffPage(tif.get(), page)) {
        loaded.pages.append(page);
        loaded.isWhole = TIFFLastDirectory(tif.get()) != 0;
        if (loaded.isWhole || TIFFReadDirectory(tif.get()) != 1)
            break;
    }
    loaded.lines = heardLines;
    return loaded;
}

inline Loaded load(const QString &path)
{
    Loaded loaded;
    heardLines.clear();
    ImageDocument document({}, {});
    loaded.isWhole = document.load(path, QStringLiteral("TIFF"));
    for (uint pi = 1; pi <= document.pageCount(); ++pi)
        loaded.pages.append(document.page(pi));
    loaded.lines = heardLines;
    return loaded;
}

inline QString differences(const Loaded &actual, const Loaded &expected)
{
    if (actual.lines != expected.lines)
        return QLatin1String("lines: ") + actual.lines.join(u'|') + QLatin1String(" for ") + expected.lines.join(u'|');
    if (actual.isWhole != expected.isWhole || actual.pages.size() != expected.pages.size())
        return QStringLiteral("%1 pages, whole: %2").arg(actual.pages.size()).arg(actual.isWhole);
    for (qsizetype i = 0; i < actual.pages.size(); ++i) {
        if (actual.pages[i] != expected.pages[i] || actual.pages[i].format() != expected.pages[i].format())
            return QStringLiteral("page %1").arg(i);
    }
    return {};
}

/// Pages that differ, of a size of their own each.
inline QList<TiffPage> pages_of(int count, int depth, int compression, QSize size = {60, 40})
{
    QList<TiffPage> pages;
    for (int i = 0; i < count; ++i) {
        const QImage picture = patterned_page(size + QSize(5 * i, 3 * i), depth);
        pages.append(depth == 1 ? bilevel_tiff_page(picture)
                                : (depth == 8 ? grey_tiff_page(picture) : rgb_tiff_page(picture)));
        pages.last().compression = compression;
        pages.last().rowsPerStrip = 16;
    }
    return pages;
}

/// How many pages of a file come from the thread; -1 if one cannot be read.
inline int count_ahead(const QString &path)
{
    const TiffHandle tif = open_tiff(path, "rm");
    TiffPagesAhead reader(tif.get());
    QImage page;
    do {
        if (!reader.readPage(page))
            return -1;
    } while (TIFFReadDirectory(tif.get()) == 1);
    return reader.countTaken();
}

/// For tests whose files are read by two threads: only one speaks, and no other stays.
class ReadByTwo
{
protected:
    void begin()
    {
        tell_of_tiff_by_the_toolkit();
        formerHandler = qInstallMessageHandler(hear);
        formerThreads = live_threads();
        hasStrangerSpoken = false;
    }
    void end()
    {
        qInstallMessageHandler(formerHandler);
        QVERIFY(!hasStrangerSpoken);
        QCOMPARE(newThreads(), QStringList());
    }

    [[nodiscard]] QStringList newThreads() const
    {
        QStringList names = live_threads();
        names.removeIf([this](const QString &name) { return formerThreads.contains(name); });
        return names;
    }

    [[nodiscard]] QString path(const QString &name = QStringLiteral("a.tif")) const { return directory.filePath(name); }

private:
    const QTemporaryDir directory;
    QStringList formerThreads;
    QtMessageHandler formerHandler = nullptr;
};

// Snapshots that another program has garbled, cut or replaced since they were written: a page comes back, or none, and
// the page that was saved comes back as long as nobody touches its file.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "pictures.h"
#include "quiet_toolkit.h"
#include "random_pages.h"
#include "snapshot_file.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

QImage page_from(FuzzInput &input)
{
    const QImage::Format format = page_formats().at(input.below(static_cast<int>(page_formats().size())));
    const QSize size(input.within(1, 40), input.within(1, 20));
    QRandomGenerator random(input.byte());
    return random_page(random, size, format);
}

/// Does to a file what another program may do. @return whether its bytes are others
bool garble(QFile &file, FuzzInput &input)
{
    const QByteArray former = file.readAll();
    while (!input.isAtEnd()) {
        const qint64 place = input.below(static_cast<int>(former.size()));
        switch (input.below(8)) {
        case 0:
            promise(file.resize(place), "a file can be cut");
            break;
        case 1: {
            const QByteArray other = QByteArray::fromStdString(input.rest());
            promise(file.resize(0) && file.seek(0) && file.write(other) == other.size(), "a file can be replaced");
            break;
        }
        default: {
            const QByteArray other = QByteArray::fromStdString(input.text());
            promise(file.seek(place) && file.write(other) == other.size(), "a file can be written over");
            break;
        }
        }
    }
    return file.flush() && file.seek(0) && file.readAll() != former;
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    std::vector<std::string> seeds;
    for (char format = 0; format < 5; ++format) {
        seeds.push_back({format, 8, 6, 1});
        seeds.push_back({format, 38, 19, 2, 18, 3, 4, '\xff', '\xff', '\xff', '\xff'});
        seeds.push_back({format, 11, 3, 3, 70, 0});
        seeds.push_back({format, 5, 3, 3, 28, 3, 1, 32, 46, 4, 2, 1, 0});
    }
    return seeds;
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit();
    static const QTemporaryDir directory;
    const QString path = directory.filePath(u"00000001.bmp"_s);
    FuzzInput input(bytes);
    const QImage page = page_from(input);
    promise(write_snapshot(path, page), "a page can be saved");

    QFile file(path);
    promise(file.open(QIODevice::ReadWrite), "a snapshot can be opened");
    const bool isGarbled = garble(file, input);
    const QImage read = read_snapshot(path);
    promise(QFile::remove(path), "a snapshot can be removed");

    promise(read.isNull() || page_formats().contains(read.format()), "what comes back is a page");
    promise(read.isNull() || (read.dotsPerMeterX() > 0 && read.dotsPerMeterY() > 0), "a page has a resolution");
    if (isGarbled)
        return;
    promise(read.size() == page.size(), "an untouched snapshot has its size");
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            promise(read.pixel(x, y) == page.pixel(x, y), "an untouched snapshot has its colours");
    }
}

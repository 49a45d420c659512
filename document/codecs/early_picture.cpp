#include "early_picture.h"

#include "file_state.h"
#include "first_picture.h"
#include "image_memory.h"
#include "page_buffers.h"
#include "picture_word.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QImageReader>

#include <chrono>
#include <cstdlib>
#include <future>
#include <optional>
#include <sys/stat.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// All that changes with a file: more than FileState, since what is kept in mind there may be renamed meanwhile.
struct Stamp
{
    FileState state;
    qint64 changedSeconds = 0;
    qint64 changedNanoseconds = 0;

    [[nodiscard]] bool operator==(const Stamp &) const = default;
};

struct Decoded
{
    QString imgFormat; ///< the word that the file was read by
    Stamp stamp;
    QImage page;
};

struct Decoding
{
    QString filePath;
    std::future<std::optional<Decoded>> result;
};

std::optional<Decoding> decoding; ///< of the GUI thread alone

QtMessageHandler formerHandler = nullptr;
thread_local bool isApart = false;
thread_local bool hasSpoken = false;

/// Lines of the thread are not told: the load reads such a file again, and has them told in their place.
void receive(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (isApart && type != QtFatalMsg)
        hasSpoken = true;
    else
        formerHandler(type, context, text);
}

std::optional<Stamp> stamp_of(int file)
{
    struct stat status
    {
    };
    if (::fstat(file, &status) != 0)
        return {};
    return Stamp{file_state(file), status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

/// Whether opening it waits for nobody, and a load would read it.
bool is_plain_file(const QString &filePath)
{
    struct stat status
    {
    };
    return ::stat(QFile::encodeName(filePath).constData(), &status) == 0 && S_ISREG(status.st_mode)
        && status.st_size <= LargestFileBytes;
}

/// What the toolkit calls such a file; empty for files that are left alone.
QString word_for(QIODevice &file)
{
    const QByteArray start = file.peek(4);
    const bool isTiff = start == QByteArrayView("II*\0", 4) || start == QByteArrayView("MM\0*", 4);
    return isTiff ? u"tiff"_s : single_picture_word(file);
}

std::optional<Decoded> decode(const QString &filePath)
{
    QFile file(filePath);
    if (!is_plain_file(filePath) || !file.open(QIODevice::ReadOnly))
        return {};
    const std::optional<Stamp> stamp = stamp_of(file.handle());
    const QString imgFormat = word_for(file);
    if (!stamp || imgFormat.isEmpty())
        return {};
    QImage page = read_first_picture_apart(filePath, imgFormat);
    if (page.isNull() || stamp_of(file.handle()) != stamp)
        return {};
    return Decoded{imgFormat, *stamp, std::move(page)};
}

std::optional<Decoded> decode_in_silence(const QString &filePath)
{
    isApart = true;
    hasSpoken = false;
    std::optional<Decoded> decoded = decode(filePath);
    isApart = false;
    return hasSpoken ? std::nullopt : std::move(decoded);
}

/// Waits for the thread. Where there was none to be had, the file is left to the load.
std::optional<Decoded> finish()
{
    using namespace std::chrono_literals;
    std::optional<Decoded> decoded;
    if (decoding->result.wait_for(0s) != std::future_status::deferred)
        decoded = decoding->result.get();
    decoding.reset();
    qInstallMessageHandler(formerHandler);
    return decoded;
}

/// What the thread and the GUI thread both need for their first picture is made before there are two.
void prepare()
{
    QBuffer nothing;
    QImageReader reader(&nothing, "png");
    reader.setAutoDetectImageFormat(false);
    (void)reader.canRead(); // lists the plug-ins and loads none
    (void)spare_page_bytes();
    limit_image_readers();
    // After these, so that the thread is waited for before they are taken down.
    [[maybe_unused]] static const int registered = std::atexit(end_early_picture);
}

} // namespace

EarlyPicture::EarlyPicture(const QString &filePath)
{
    if (filePath.isEmpty())
        return;
    prepare();
    formerHandler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(receive);
    decoding = Decoding{filePath, std::async(std::launch::async | std::launch::deferred, decode_in_silence, filePath)};
}

EarlyPicture::~EarlyPicture()
{
    end_early_picture();
}

QImage take_early_picture(const QString &filePath, const QString &imgFormat, int file)
{
    if (!decoding || decoding->filePath != filePath)
        return {};
    std::optional<Decoded> decoded = finish();
    const bool isSame = decoded && decoded->imgFormat == imgFormat && stamp_of(file) == decoded->stamp;
    return isSame ? std::move(decoded->page) : QImage();
}

void end_early_picture()
{
    if (decoding)
        (void)finish();
}

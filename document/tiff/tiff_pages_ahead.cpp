#include "tiff_pages_ahead.h"

#include "descriptor.h"
#include "file_state.h"
#include "image_memory.h"
#include "page_buffers.h"
#include "tiff_codec.h"

#include <QByteArray>
#include <QScopeGuard>

#include <chrono>
#include <condition_variable>
#include <cstdarg>
#include <cstdlib>
#include <deque>
#include <fcntl.h>
#include <future>
#include <memory>
#include <mutex>
#include <tiffio.h>
#include <utility>

namespace {

/// While less may be had, the outcome of a load could depend on who asks first.
constexpr qint64 PlentyOfBytes = qint64{512} * 1024 * 1024;
constexpr qsizetype MostBytesWaiting = qsizetype{8} * 1024 * 1024;

extern "C" int note_words(TIFF * /*tif*/, void *hasSpoken, const char * /*module*/, const char * /*format*/,
                          va_list /*arguments*/)
{
    *static_cast<bool *>(hasSpoken) = true;
    return 1; // nobody else is to be told
}

/// The file of a handle opened once more, wherever its name leads by now.
Descriptor open_again(TIFF *tif)
{
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(TIFFFileno(tif));
    Descriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC));
    return file.isOpen() && file_state(file.get()) == file_state(TIFFFileno(tif)) ? std::move(file) : Descriptor();
}

/// A handle whose messages only set @p hasSpoken.
TiffHandle open_in_silence(Descriptor file, bool &hasSpoken)
{
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(TIFFOpenOptionsAlloc(),
                                                                                   TIFFOpenOptionsFree);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), note_words, &hasSpoken);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), note_words, &hasSpoken);
    TiffHandle tif(TIFFFdOpenExt(file.get(), "", "rm", options.get()));
    if (tif)
        (void)file.release();
    return tif;
}

} // namespace

/// The thread and what it shares with the one that loads.
class SecondReader
{
public:
    explicit SecondReader(Descriptor ownFile) :
        file(std::move(ownFile)),
        result(std::async(std::launch::async | std::launch::deferred, [this] { decodePages(); }))
    {
        using namespace std::chrono_literals;
        hasThread = result.wait_for(0s) != std::future_status::deferred;
    }
    ~SecondReader() { end(); }
    Q_DISABLE_COPY_MOVE(SecondReader)

    /// Waits for the thread.
    void end()
    {
        if (!std::exchange(hasThread, false))
            return;
        {
            const std::scoped_lock lock(mutex);
            isEnding = true;
        }
        changed.notify_all();
        result = {}; // waits
        pages.clear();
    }

    /// The page with this number, once it is decoded; null for one that is not decoded ahead.
    [[nodiscard]] QImage take(int number)
    {
        if (!hasThread)
            return {};
        std::unique_lock lock(mutex);
        current = number;
        changed.notify_all();
        if (!isAhead(number))
            return {};
        changed.wait(lock, [this] { return !pages.empty() || hasEnded; });
        if (pages.empty())
            return {};
        QImage page = std::move(pages.front());
        pages.pop_front();
        bytesWaiting -= page.sizeInBytes();
        return page;
    }

private:
    [[nodiscard]] static bool isAhead(int number) { return number % 2 == 1; }

    void decodePages()
    {
        const auto ended = qScopeGuard([this] {
            const std::scoped_lock lock(mutex);
            hasEnded = true;
            changed.notify_all();
        });
        bool hasSpoken = false;
        const TiffHandle tif = open_in_silence(std::move(file), hasSpoken);
        int number = 0;
        while (tif && TIFFLastDirectory(tif.get()) == 0 && TIFFReadDirectory(tif.get()) == 1) {
            ++number;
            if (isAhead(number) && !decode(tif.get(), number, hasSpoken))
                return;
        }
    }

    /// @return false if this was the last one
    bool decode(TIFF *tif, int number, bool &hasSpoken)
    {
        const double bytes = claimed_page_bytes(tif);
        if (bytes > static_cast<double>(TiffPagesAhead::LargestPageAhead) || affordable_image_bytes() < PlentyOfBytes
            || !waitForRoom(number, bytes))
            return false;
        hasSpoken = false; // words about directories come from the other handle as well
        QImage page;
        const bool isRead = readTiffPage(tif, page) && !hasSpoken;

        const std::scoped_lock lock(mutex);
        pages.push_back(isRead ? std::move(page) : QImage());
        bytesWaiting += pages.back().sizeInBytes();
        changed.notify_all();
        return isRead;
    }

    bool waitForRoom(int number, double bytes)
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [=, this] {
            const double waiting = static_cast<double>(bytesWaiting) + bytes;
            return isEnding || number <= current + 1 || waiting <= static_cast<double>(MostBytesWaiting);
        });
        return !isEnding;
    }

    Descriptor file; ///< of the thread alone, once there is one
    bool hasThread = false; ///< of the one that loads
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<QImage> pages; ///< in their order; null for one to be decoded once more
    qsizetype bytesWaiting = 0;
    int current = 0; ///< page that is being loaded
    bool isEnding = false;
    bool hasEnded = false;
    std::future<void> result; ///< begins when all of the above stands
};

namespace {

SecondReader *second_at_work = nullptr; ///< of the GUI thread alone

void end_second_reader()
{
    if (second_at_work)
        second_at_work->end();
}

/// What both threads need is made before there are two.
void prepare()
{
    (void)spare_page_bytes();
    // After this, so that the thread is waited for before the memory of pages is taken down.
    [[maybe_unused]] static const int registered = std::atexit(end_second_reader);
}

} // namespace

TiffPagesAhead::TiffPagesAhead(TIFF *firstPage) : tif(firstPage)
{
    if (second_at_work || TIFFLastDirectory(tif) != 0 || affordable_image_bytes() < PlentyOfBytes)
        return;
    Descriptor file = open_again(tif);
    if (!file.isOpen())
        return;
    prepare();
    second = std::make_unique<SecondReader>(std::move(file));
    second_at_work = second.get();
}

TiffPagesAhead::~TiffPagesAhead()
{
    if (second)
        second_at_work = nullptr;
}

bool TiffPagesAhead::readPage(QImage &image)
{
    ++number;
    // The memory for a large page is there only where nobody has taken any meanwhile.
    if (second && claimed_page_bytes(tif) > static_cast<double>(LargestPageAhead))
        second->end();
    image = second ? second->take(number) : QImage();
    if (image.isNull())
        return readTiffPage(tif, image);
    ++taken;
    return true;
}

#include "page_buffers.h"

#include <QColorSpace>
#include <QList>
#include <QSet>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <mutex>
#include <numeric>
#include <sys/mman.h>
#include <utility>

namespace {

/// The memory of pages is held as images that the toolkit made, so that those can be taken in as well.
/// What such an image shows does not matter; only its bytes are lent out.
class PagePool
{
public:
    [[nodiscard]] QImage take(qsizetype bytes)
    {
        const std::scoped_lock lock(mutex);
        noteWanted(bytes);
        const auto fit =
            std::ranges::find_if(spares, [bytes](const QImage &memory) { return memory.sizeInBytes() >= bytes; });
        return fit == spares.end() ? QImage() : spares.takeAt(fit - spares.begin());
    }

    void lend(const uchar *bits)
    {
        const std::scoped_lock lock(mutex);
        lent.insert(bits);
    }

    [[nodiscard]] bool isLent(const uchar *bits) const
    {
        const std::scoped_lock lock(mutex);
        return lent.contains(bits);
    }

    /// Of memory that was lent out.
    void giveBack(QImage memory)
    {
        const std::scoped_lock lock(mutex);
        lent.remove(memory.constBits());
        spares.append(std::move(memory));
        while (spares.size() > 1 && countSpareBytes() > SmallSpareBytes)
            spares.removeFirst();
    }

    void note(qsizetype bytes)
    {
        const std::scoped_lock lock(mutex);
        noteWanted(bytes);
    }

    void drop()
    {
        const std::scoped_lock lock(mutex);
        spares.clear();
    }

    [[nodiscard]] qsizetype spareBytes() const
    {
        const std::scoped_lock lock(mutex);
        return countSpareBytes();
    }

private:
    void noteWanted(qsizetype bytes)
    {
        wantedBytes = bytes;
        spares.removeIf([this](const QImage &memory) { return !isFit(memory); });
    }

    [[nodiscard]] qsizetype countSpareBytes() const
    {
        const auto add = [](qsizetype sum, const QImage &memory) { return sum + memory.sizeInBytes(); };
        return std::accumulate(spares.cbegin(), spares.cend(), qsizetype{0}, add);
    }

    /// Whether it is about as large as the pages of now.
    [[nodiscard]] bool isFit(const QImage &memory) const
    {
        const qsizetype bytes = memory.sizeInBytes();
        return bytes <= 2 * wantedBytes && wantedBytes <= 2 * bytes;
    }

    static constexpr qsizetype SmallSpareBytes = qsizetype{32} * 1024 * 1024;

    mutable std::mutex mutex;
    QList<QImage> spares;
    QSet<const uchar *> lent; ///< where the pages begin that stand on memory of the pool
    qsizetype wantedBytes = 0;
};

/// What stands behind a page. It keeps the pool alive too, should a page outlive everything else.
class Lease
{
public:
    Lease(std::shared_ptr<PagePool> pagePool, QImage pageMemory) :
        pool(std::move(pagePool)),
        memory(std::move(pageMemory))
    {
        pool->lend(memory.constBits());
    }
    ~Lease() { pool->giveBack(std::move(memory)); }
    Q_DISABLE_COPY_MOVE(Lease)

    [[nodiscard]] uchar *bits() { return memory.bits(); }

private:
    std::shared_ptr<PagePool> pool;
    QImage memory;
};

const std::shared_ptr<PagePool> &page_pool()
{
    static const auto pool = std::make_shared<PagePool>();
    return pool;
}

void end_lease(void *info)
{
    const std::unique_ptr<Lease> lease(static_cast<Lease *>(info));
}

qsizetype bytes_per_line(int width, QImage::Format format)
{
    const qsizetype bits = qsizetype{width} * QImage::toPixelFormat(format).bitsPerPixel();
    return (bits + 31) / 32 * 4;
}

/// Asks for large blocks of memory, which the system hands out faster. A refusal costs time, no more.
void prefer_huge_blocks(QImage &memory)
{
    constexpr std::uintptr_t HugeBlock = std::uintptr_t{2} * 1024 * 1024;
    const auto begin = reinterpret_cast<std::uintptr_t>(memory.bits());
    const std::uintptr_t end = begin + static_cast<std::uintptr_t>(memory.sizeInBytes());
    const std::uintptr_t from = (begin + HugeBlock - 1) / HugeBlock * HugeBlock;
    const std::uintptr_t to = end / HugeBlock * HugeBlock;
    if (from < to)
        (void)madvise(reinterpret_cast<void *>(from), to - from, MADV_HUGEPAGE);
}

/// A page on the bytes of @p memory, which must suffice.
QImage lend(QImage memory, QSize size, QImage::Format format)
{
    auto lease = std::make_unique<Lease>(page_pool(), std::move(memory));
    QImage page(lease->bits(), size.width(), size.height(), bytes_per_line(size.width(), format), format, end_lease,
                lease.get());
    if (!page.isNull())
        (void)lease.release(); // the last copy of the page calls end_lease()
    return page;
}

/// Entries that are 0 but count as opaque, as in a table that was only given its length, stay so.
void copy_color_table(const QImage &from, QImage &to)
{
    if (from.depth() > 8)
        return;
    if (from.hasAlphaChannel()) {
        to.setColorTable(from.colorTable());
        return;
    }
    to.setColorTable({});
    to.setColorCount(from.colorCount());
    for (int i = 0; i < from.colorCount(); ++i) {
        if (from.color(i) != 0)
            to.setColor(i, from.color(i));
    }
}

} // namespace

void copy_page_attributes(const QImage &pattern, QImage &page)
{
    if (page.format() == pattern.format())
        copy_color_table(pattern, page);
    page.setDotsPerMeterX(pattern.dotsPerMeterX());
    page.setDotsPerMeterY(pattern.dotsPerMeterY());
    page.setDevicePixelRatio(pattern.devicePixelRatio());
    page.setOffset(pattern.offset());
    page.setColorSpace(pattern.colorSpace());
    for (const QString &key : pattern.textKeys())
        page.setText(key, pattern.text(key));
}

QImage new_page(QSize size, QImage::Format format)
{
    return new_roomy_page(size, format, 0);
}

QImage new_roomy_page(QSize size, QImage::Format format, qsizetype bytes)
{
    if (size.isEmpty() || format == QImage::Format_Invalid)
        return {};
    const qsizetype lineBytes = bytes_per_line(size.width(), format);
    if (lineBytes * size.height() < SmallestPooledBytes)
        return {size, format};

    const qsizetype lines = std::max(qsizetype{size.height()}, (bytes + lineBytes - 1) / lineBytes);
    QImage memory = page_pool()->take(lines * lineBytes);
    if (memory.isNull()) {
        memory = QImage(size.width(), static_cast<int>(lines), format);
        if (memory.isNull())
            return {};
        prefer_huge_blocks(memory);
    }
    QImage page = lend(std::move(memory), size, format);
    if (page.depth() == 1)
        page.setColorTable({0xff000000, 0xffffffff}); // images on foreign memory begin without any
    return page;
}

QImage new_page_like(const QImage &pattern, QSize size, QImage::Format format)
{
    QImage page = new_page(size, format);
    if (!page.isNull())
        copy_page_attributes(pattern, page);
    return page;
}

QImage new_page_like(const QImage &pattern, QSize size)
{
    return new_page_like(pattern, size, pattern.format());
}

QImage adopt_page(QImage image)
{
    const bool isPooled = page_pool()->isLent(image.constBits());
    if (isPooled || image.sizeInBytes() < SmallestPooledBytes || !image.isDetached())
        return image;
    page_pool()->note(image.sizeInBytes());
    const QImage attributes = image.copy(0, 0, 1, 1);
    const QSize size = image.size();
    QImage page = lend(std::move(image), size, attributes.format());
    copy_page_attributes(attributes, page);
    return page;
}

qsizetype spare_page_bytes()
{
    return page_pool()->spareBytes();
}

void drop_spare_page()
{
    page_pool()->drop();
}

#include "jpeg_page.h"

#include "page_buffers.h"
#include "page_image.h"
#include "whole_file.h"

#include <QByteArray>
#include <QFile>
#include <QImageReader>

#include <array>
#include <csetjmp>
#include <cstdio> // for the library's header
#include <future>
#include <jpeglib.h>

namespace {

/// One pass over the bytes of a file, by the library.
///
/// Errors: each call tells whether all went well. What the library would only warn of is an error, too.
class JpegPass
{
public:
    explicit JpegPass(QByteArrayView file) : bytes(file)
    {
        decoder.err = jpeg_std_error(&errors);
        decoder.client_data = this;
        errors.error_exit = [](j_common_ptr failed) { stop(failed); };
        errors.emit_message = [](j_common_ptr speaker, int level) {
            constexpr int warning = -1;
            if (level == warning)
                stop(speaker);
        };
    }
    ~JpegPass() { jpeg_destroy_decompress(&decoder); }
    Q_DISABLE_COPY_MOVE(JpegPass)

    [[nodiscard]] bool readHeader()
    {
        return hasDone([this] {
            jpeg_create_decompress(&decoder);
            jpeg_mem_src(&decoder, reinterpret_cast<const uchar *>(bytes.data()),
                         static_cast<unsigned long>(bytes.size()));
            for (const int marker : {JPEG_COM, JPEG_APP0 + 1, JPEG_APP0 + 2}) // text, camera, profile
                jpeg_save_markers(&decoder, marker, 1);
            (void)jpeg_read_header(&decoder, TRUE);
        });
    }

    /// Behind the header.
    [[nodiscard]] bool isPlain() const
    {
        const auto isPlainComponent = [this](int i) {
            const jpeg_component_info &component = decoder.comp_info[i];
            const int most = i == 0 ? 2 : 1;
            return component.h_samp_factor <= most && component.v_samp_factor <= most;
        };
        return decoder.jpeg_color_space == JCS_YCbCr && decoder.num_components == 3 && decoder.comps_in_scan == 3
            && decoder.progressive_mode == FALSE && decoder.marker_list == nullptr && isPlainComponent(0)
            && isPlainComponent(1) && isPlainComponent(2);
    }

    [[nodiscard]] QSize size() const
    {
        return {static_cast<int>(decoder.image_width), static_cast<int>(decoder.image_height)};
    }

    /// Rounded as the toolkit does it.
    void setResolution(QImage &page) const
    {
        constexpr int dotsPerInch = 1;
        constexpr int dotsPerCentimeter = 2;
        constexpr double centimetersOfAnInch = 2.54;
        if (decoder.density_unit != dotsPerInch && decoder.density_unit != dotsPerCentimeter)
            return;
        const double length = decoder.density_unit == dotsPerInch ? centimetersOfAnInch : 1;
        page.setDotsPerMeterX(static_cast<int>(100. * decoder.X_density / length));
        page.setDotsPerMeterY(static_cast<int>(100. * decoder.Y_density / length));
    }

    /// Behind the header. Those from @p first up to @p end; with the last one the file has to end.
    [[nodiscard]] bool readRows(uchar *firstRow, qsizetype bytesPerLine, JDIMENSION first, JDIMENSION end)
    {
        return hasDone([&] {
            decoder.out_color_space = JCS_EXT_BGRX;
            (void)jpeg_start_decompress(&decoder);
            if (first > 0)
                (void)jpeg_skip_scanlines(&decoder, first);
            while (decoder.output_scanline < end) {
                std::array<JSAMPROW, 2> rows{};
                rows[0] = firstRow + bytesPerLine * decoder.output_scanline;
                rows[1] = rows[0] + bytesPerLine;
                (void)jpeg_read_scanlines(&decoder, rows.data(), decoder.output_scanline + 1 < end ? 2 : 1);
            }
            if (end == decoder.output_height)
                (void)jpeg_finish_decompress(&decoder);
        });
    }

private:
    template <typename Work> [[nodiscard]] bool hasDone(const Work &work)
    {
        // The library knows no other way out; between here and there nothing has to be destroyed.
        if (setjmp(wayOut) != 0)
            return false;
        work();
        return true;
    }

    [[noreturn]] static void stop(j_common_ptr failed)
    {
        std::longjmp(static_cast<JpegPass *>(failed->client_data)->wayOut, 1);
    }

    QByteArrayView bytes;
    jpeg_decompress_struct decoder{};
    jpeg_error_mgr errors{};
    std::jmp_buf wayOut{};
};

/// Whether the toolkit would take a picture of this size.
bool is_affordable(QSize size)
{
    constexpr qint64 MiB = qint64{1024} * 1024;
    const int limit = QImageReader::allocationLimit();
    return limit == 0 || qint64{4} * size.width() * size.height() <= limit * MiB;
}

/// Whether all rows have come. The coded data say nowhere where a row begins, so the thread of the lower rows reads the
/// upper ones too, but makes no pixels of them, which takes half the time: it gets as many as let both end together.
bool read_rows(JpegPass &pass, QByteArrayView bytes, QImage &page)
{
    constexpr qsizetype worthwhile = qsizetype{4} * 1024 * 1024; // bytes of a page
    constexpr JDIMENSION blockRows = 16; // at most: a block that both threads need would be decoded twice
    const auto height = static_cast<JDIMENSION>(page.height());
    const qsizetype bytesPerLine = page.bytesPerLine();
    uchar *const firstRow = page.bits();
    if (page.sizeInBytes() < worthwhile)
        return pass.readRows(firstRow, bytesPerLine, 0, height);

    const JDIMENSION middle = height * 11 / 16 / blockRows * blockRows;
    std::future<bool> lower = std::async(std::launch::async | std::launch::deferred, [=] {
        JpegPass secondPass(bytes);
        return secondPass.readHeader() && secondPass.readRows(firstRow, bytesPerLine, middle, height);
    });
    const bool isUpperRead = pass.readRows(firstRow, bytesPerLine, 0, middle);
    return lower.get() && isUpperRead; // it also begins there where no thread was to be had
}

} // namespace

QImage read_plain_jpeg(QFile &file)
{
    if (file.peek(2) != QByteArrayView("\xff\xd8") || is_named_for_a_scale(file))
        return {};
    const QByteArray bytes = all_bytes(file);
    JpegPass pass(bytes);
    if (!pass.readHeader() || !pass.isPlain() || !is_affordable(pass.size()))
        return {};
    QImage page = new_page(pass.size(), QImage::Format_RGB32);
    if (page.isNull())
        return {};
    if (!read_rows(pass, bytes, page)) {
        page = {};
        drop_spare_page(); // of the size that a broken file has claimed
        return {};
    }
    pass.setResolution(page);
    return to_page_image(std::move(page));
}

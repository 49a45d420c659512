#pragma once

#include <QList>
#include <QSize>
#include <QString>

#include <array>

/// Pages, in files and in tabs, of the curves that show where the work grows.
inline constexpr std::array ScaleCounts{1, 2, 5, 20, 50, 100, 200, 500};

/// A page of those curves.
struct ScalePage
{
    QString name; ///< of the paper
    QSize size; ///< pixels
    int dpi;
    int depth; ///< 32 or 1

    /// Below the directory of the inputs. Colour goes by JPEG: no file of more than 512 MiB is loaded.
    [[nodiscard]] QString path() const
    {
        return QStringLiteral("scale/%1x%2.%3")
            .arg(size.width())
            .arg(size.height())
            .arg(depth == 1 ? QLatin1StringView("tif") : QLatin1StringView("jpg"));
    }
};

/// From A6 at 150 dpi to A0 at 600 dpi; at 1 bit to 1.1 gigapixels.
[[nodiscard]] inline QList<ScalePage> scale_pages(int depth)
{
    const auto page = [depth](const char *paper, int dpi, int width, int height) {
        return ScalePage{QStringLiteral("%1 at %2 dpi").arg(QLatin1StringView(paper)).arg(dpi), QSize(width, height),
                         dpi, depth};
    };
    QList<ScalePage> pages{page("A6", 150, 620, 874),     page("A4", 150, 1240, 1754),  page("A4", 300, 2480, 3508),
                           page("A4", 600, 4960, 7016),   page("A3", 600, 7016, 9921),  page("A2", 600, 9921, 14031),
                           page("A1", 600, 14031, 19866), page("A0", 600, 19866, 28087)};
    if (depth == 1)
        pages.append(page("A0", 840, 27812, 39322));
    return pages;
}

/// A file of that many pages, below the directory of the inputs.
[[nodiscard]] inline QString scale_file(int pages)
{
    return QStringLiteral("scale/pages_%1.tif").arg(pages);
}

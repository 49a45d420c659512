// Draws the sample scans that lie in share/samples:
//
//   make_samples DIRECTORY

#include "fax_tiff.h"
#include "sample_pages.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool make_all(const QDir &directory)
{
    constexpr int PhotographQuality = 80;
    return letter_page().save(directory.filePath(u"letter.png"_s), "PNG", 0)
        && photograph_page().save(directory.filePath(u"photograph.jpg"_s), "JPEG", PhotographQuality)
        && write_fax_tiff(form_page(), directory.filePath(u"form.tif"_s));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // fonts are wanted, windows are not
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        (void)std::fputs("usage: make_samples DIRECTORY\n", stderr);
        return 2;
    }

    const QDir directory(QString::fromLocal8Bit(argv[1]));
    if (!directory.exists() || !make_all(directory)) {
        (void)std::fprintf(stderr, "make_samples: cannot write into %s\n", argv[1]);
        return 1;
    }
    return 0;
}

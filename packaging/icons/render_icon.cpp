// Draws an icon as PNG files:
//
//   render_icon DRAWING.svg RESULT.png...
//
// The size of each comes from its path, .../<width>x<height>/apps/<name>.png, as icon themes have it.

#include "icon_forms.h"

#include <QRegularExpression>

#include <cstdio>
#include <span>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    const std::span words(argv, static_cast<std::size_t>(argc));
    if (words.size() < 3) {
        std::fputs("usage: render_icon DRAWING.svg RESULT.png...\n", stderr);
        return 2;
    }
    const QRegularExpression sizeInPath(u"/(\\d+)x(\\d+)/"_s);
    for (const char *const word : words.subspan(2)) {
        const QString path = QString::fromLocal8Bit(word);
        const QRegularExpressionMatch size = sizeInPath.match(path);
        const QImage icon =
            render_drawing(QString::fromLocal8Bit(words[1]), QSize(size.captured(1).toInt(), size.captured(2).toInt()));
        if (icon.isNull() || !icon.save(path, "PNG")) {
            std::fprintf(stderr, "render_icon: cannot draw %s\n", word);
            return 1;
        }
    }
    return 0;
}

#pragma once

#include "files.h"

#include <QFile>
#include <QString>
#include <QTest>

/// @name Filters as the dialogs show them.
/// @{
inline const QString bmpFilter = QStringLiteral("Windows Bitmaps (*.bmp)");
inline const QString pngFilter = QStringLiteral("Portable Network Graphics (*.png)");
inline const QString jpegFilter = QStringLiteral("JPEG (*.jpg *.jpeg)");
inline const QString ppmFilter = QStringLiteral("Portable Bitmap Colorful (*.ppm)");
inline const QString tiffFilter = QStringLiteral("Tagged Image File Format (*.tiff *.tif)");
inline const QString multipageFilter = QStringLiteral("Multipage TIFF (*.tiff *.tif)");
inline const QString allFilter = QStringLiteral("All files (*.*)");
/// @}

/// The rows of a test whose one column "name" holds names of PNG files that are easily spoilt.
inline void add_name_rows()
{
    using namespace Qt::StringLiterals;
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"scan.png"_s;
    QTest::newRow("place marker") << u"page %1 of %2.png"_s;
    QTest::newRow("escape of a URL") << u"a%41b#c?d.png"_s;
    QTest::newRow("ampersand and blanks") << u" Smith & Sons  .png"_s;
    QTest::newRow("markup") << u"<b>&lt;bold.png"_s;
    QTest::newRow("quotation marks") << u"my \"scan\".png"_s;
    QTest::newRow("one quotation mark") << u"12\" disc.png"_s;
    QTest::newRow("colon") << u"scan 10:30.png"_s;
    QTest::newRow("letters beyond ASCII") << u"Stra\u00dfe \u6f22\u5b57.png"_s;
    QTest::newRow("255 bytes") << QString(u"\u00e9"_s.repeated(125) + u"a.png"_s);
}

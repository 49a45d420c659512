#pragma once

#include "OutsideTools.h"
#include "WindowFixture.h"

#include <QImage>

/// The window, and programs outside that tell what they were given.
class ToolsFixture : public WindowFixture
{
public:
    using WindowFixture::WindowFixture;

    OutsideTools outside{home};

    void print() const { action(QStringLiteral("file_print"))->trigger(); }

    /// A file of two different pages.
    [[nodiscard]] QString twoPages() const
    {
        QString path = home.filePath(QStringLiteral("pages.tif"));
        ImageDocument document{QString(), QString()};
        QImage second = patterned_page({40, 30}).convertToFormat(QImage::Format_RGB32);
        second.fill(Qt::white);
        if (!document.addPage(patterned_page({50, 40}).convertToFormat(QImage::Format_RGB32))
            || !document.addPage(second) || !document.save(path, QStringLiteral("TIFF")))
            qFatal("cannot write two pages");
        return path;
    }

    [[nodiscard]] QImage firstPage() const { return view(0)->document()->page(1); }
};

// Turns the drawings of share/icons into the tables of pictures that the program carries:
//
//   embed_icons DRAWINGS_DIRECTORY RESULT.cpp
//
// The pixels are written in the byte order of the machine that builds.

#include "icon_forms.h"

#include <QByteArray>
#include <QDir>
#include <QSaveFile>
#include <QTextStream>

#include <array>
#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array ToolBases{"Crop",   "Effects", "Flip",   "Properties", "Redo",   "Resize",
                               "Rotate", "Save",    "Scroll", "Undo",       "ZoomIn", "ZoomOut"};
constexpr int ToolSize = 24;
constexpr auto ApplicationBase = "imagemanager"_L1;
constexpr std::array ApplicationSizes{16, 24, 32, 48, 64, 128};

struct NamedPicture
{
    QString name;
    QImage image;
};

bool append_tool_pictures(std::vector<NamedPicture> &pictures, const QDir &drawings)
{
    for (const char *const latin1 : ToolBases) {
        const QString base = QLatin1StringView(latin1);
        const QImage color = render_drawing(drawings.filePath(base + ".svg"_L1), QSize(ToolSize, ToolSize));
        if (color.isNull()) {
            std::fprintf(stderr, "embed_icons: cannot draw %s\n", latin1);
            return false;
        }
        pictures.push_back({base + "_color.png"_L1, color});
        pictures.push_back({base + "_disable.png"_L1, disabled_form(color)});
        pictures.push_back({base + "_gray.png"_L1, gray_form(color)});
    }
    return true;
}

bool append_application_pictures(std::vector<NamedPicture> &pictures, const QDir &drawings)
{
    for (const int size : ApplicationSizes) {
        const QImage image = render_drawing(drawings.filePath(ApplicationBase + ".svg"_L1), QSize(size, size));
        if (image.isNull()) {
            std::fprintf(stderr, "embed_icons: cannot draw %s\n", ApplicationBase.data());
            return false;
        }
        pictures.push_back({ApplicationBase + u'_' + QString::number(size) + ".png"_L1, image});
    }
    return true;
}

QByteArray packed_pixels(const QImage &image)
{
    // Rows of 32-bit words have no padding, so the bits of the image are its raw rows.
    return qCompress(image.constBits(), image.sizeInBytes(), 9);
}

void write_bytes(QTextStream &out, const QString &identifier, const QByteArray &bytes)
{
    constexpr qsizetype BytesALine = 24;
    out << "constexpr std::array<unsigned char, " << bytes.size() << "> " << identifier << "{";
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        out << (i % BytesALine == 0 ? "\n    " : "") << static_cast<unsigned>(static_cast<unsigned char>(bytes[i]))
            << ',';
    }
    out << "\n};\n";
}

void write_table(QTextStream &out, const QString &tableName, const std::vector<NamedPicture> &pictures)
{
    QString rows;
    QTextStream rowOut(&rows);
    for (const NamedPicture &picture : pictures) {
        const QByteArray packed = packed_pixels(picture.image);
        const QString identifier = QString(picture.name).chopped(4) + "_data"_L1;
        write_bytes(out, identifier, packed);
        rowOut << "    {" << picture.image.width() << ", " << picture.image.height() << ", 32, " << identifier
               << ".data(), " << packed.size() << ", 0, nullptr, true, \"" << picture.name << "\"},\n";
    }
    out << "\nconstexpr std::array<EmbeddedImage, " << pictures.size() + 1 << "> " << tableName << "{{\n"
        << rows << "    {}, // closes the table\n}};\n\n";
}

bool write_source(const QString &fileName, const std::vector<NamedPicture> &tools,
                  const std::vector<NamedPicture> &application)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out << "// Made by embed_icons from the drawings in share/icons.\n\n"
           "#include \"embedded_images.h\"\n\n#include <array>\n\nnamespace {\n\n";
    write_table(out, u"ToolPictures"_s, tools);
    write_table(out, u"ApplicationPictures"_s, application);
    out << "} // namespace\n\n"
           "const EmbeddedImage *embedded_tool_pictures()\n{\n    return ToolPictures.data();\n}\n\n"
           "const EmbeddedImage *embedded_application_pictures()\n{\n    return ApplicationPictures.data();\n}\n";
    out.flush();
    return file.commit();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: embed_icons DRAWINGS_DIRECTORY RESULT.cpp\n", stderr);
        return 2;
    }
    const QDir drawings(QString::fromLocal8Bit(argv[1]));
    std::vector<NamedPicture> tools;
    std::vector<NamedPicture> application;
    if (!append_tool_pictures(tools, drawings) || !append_application_pictures(application, drawings))
        return 1;
    if (!write_source(QString::fromLocal8Bit(argv[2]), tools, application)) {
        std::fprintf(stderr, "embed_icons: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}

// Settings files of any bytes and settings of any text: what is read is fit for use, and what is stored comes back.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "mail_settings.h"
#include "quiet_toolkit.h"
#include "ToolSettings.h"
#include "window_settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// A settings file of its own for each input, as the toolkit remembers what it has read.
class SettingsFile
{
public:
    explicit SettingsFile(const std::string &bytes)
    {
        static const QTemporaryDir directory;
        static int number = 0;
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, directory.path());
        QCoreApplication::setApplicationName(u"fuzz%1"_s.arg(++number));
        path = QSettings().fileName();
        (void)QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        promise(file.open(QIODevice::WriteOnly) && file.write(bytes.data(), std::ssize(bytes)) == std::ssize(bytes),
                "a settings file can be written");
    }
    ~SettingsFile() { (void)QFile::remove(path); }
    Q_DISABLE_COPY_MOVE(SettingsFile)

private:
    QString path;
};

void check_window()
{
    constexpr QSize fallback(800, 600);
    constexpr QSize largest(1920, 1080);
    const QSize size = read_window_size(fallback, largest);
    promise(size.width() > 0 && size.height() > 0, "a window has a size");
    promise(size.boundedTo(largest) == size, "a window fits on the screen");
    (void)read_window_setting(WindowSetting::ShowLabels, true).toBool();
    (void)read_window_setting(WindowSetting::Layout, QString()).toString();
}

bool is_same(const MailSettings &one, const MailSettings &other)
{
    return one.server == other.server && one.port == other.port && one.sender == other.sender
        && one.recipient == other.recipient && one.login == other.login && one.password == other.password;
}

/// What comes back of a text that is stored: half of a character has no bytes.
QString storable(const QString &text)
{
    return QString::fromUtf8(text.toUtf8());
}

void check_mail()
{
    const MailSettings read = read_mail_settings();
    promise(QString::number(read.port.toInt()) == read.port, "a port is a number");
    MailSettings plain = read;
    for (QString *const text : {&plain.server, &plain.sender, &plain.recipient, &plain.login})
        *text = storable(*text);
    for (QChar &character : plain.password)
        character = character.unicode() < 0x80 ? character : u'?';
    write_mail_settings(plain);
    promise(is_same(read_mail_settings(), plain), "settings of a mail come back");
    (void)read_mail_strictness();
}

void check_tools(const QString &text)
{
    for (QString (*const get)() :
         {ToolSettings::graphics_editor, ToolSettings::OCR, ToolSettings::text_editor,
          ToolSettings::graphics_editor_input, ToolSettings::OCR_input, ToolSettings::OCR_output})
        (void)get();
    promise(ToolSettings::set_graphics_editor(text), "settings can be written");
    promise(ToolSettings::graphics_editor() == text, "a command comes back");
    promise(write_window_setting(WindowSetting::Layout, text), "settings can be written");
    promise(read_window_setting(WindowSetting::Layout, QString()).toString() == text, "a layout comes back");
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    return {
        "\x05gimp [image_editor]\nshow_labels=true\nimage_editor_layout=@ByteArray(x)\nimage_editor_width=900\n"
        "image_editor_height=-1\n\n[ImageManager]\nmail_cfg\\server=a\nmail_cfg\\port=25\nmail_cfg\\pwdhash=cGFzcw==\n"
        "mail_cfg\\strict=true\n\n[scfgtools]\ngraphics_editor=gimp <BMP>\nOCR=\"a, b\"\n",
        "\x06\"a,\\;%=[image_editor]\nimage_editor_width=99999999999999999999\nimage_editor_height=@Size(3 4)\n"
        "big_pixmaps=@Variant(\\0\\0\\0\\x7f)\n",
    };
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit();
    FuzzInput input(bytes);
    const QString text = storable(QString::fromUtf8(QByteArray::fromStdString(input.text())));
    const SettingsFile file(input.rest());
    check_window();
    check_mail();
    check_tools(text);
}

#include "ToolSettings.h"

#include <QSettings>

using namespace Qt::StringLiterals;

const QString ToolSettings::GraphicsEditorFormat = u"BMP"_s;
const QString ToolSettings::OcrFormat = u"PBM"_s;
const QString ToolSettings::GraphicsEditorPlaceholder = u"<BMP>"_s;
const QString ToolSettings::OcrInputPlaceholder = u"<PBM>"_s;
const QString ToolSettings::OcrOutputPlaceholder = u"<TXT>"_s;

namespace {

struct Setting
{
    QString key;
    QString fallback;
};

// The fields of the dialog show the placeholders, so the defaults hold them too.
const Setting graphicsEditor{u"graphics_editor"_s, u"gimp %1"_s.arg(ToolSettings::GraphicsEditorPlaceholder)};
const Setting graphicsEditorInput{u"graphics_editor_input"_s, u"~/gimp_input.bmp"_s};
const Setting ocr{u"OCR"_s,
                  u"gocr -i %1 -o %2"_s.arg(ToolSettings::OcrInputPlaceholder, ToolSettings::OcrOutputPlaceholder)};
const Setting ocrInput{u"OCR_input"_s, u"~/ocr_input.pbm"_s};
const Setting ocrOutput{u"OCR_output"_s, u"~/recognized.txt"_s};
const Setting textEditor{u"text_editor"_s, u"kwrite %1"_s.arg(ToolSettings::OcrOutputPlaceholder)};

QString settings_key(const Setting &setting)
{
    return u"/scfgtools/"_s + setting.key;
}

QString read(const Setting &setting)
{
    return QSettings().value(settings_key(setting), setting.fallback).toString();
}

bool write(const Setting &setting, const QString &value)
{
    QSettings settings;
    settings.setValue(settings_key(setting), value);
    return settings.isWritable();
}

} // namespace

QString ToolSettings::graphics_editor()
{
    return read(graphicsEditor);
}

QString ToolSettings::graphics_editor_input()
{
    return read(graphicsEditorInput);
}

QString ToolSettings::OCR()
{
    return read(ocr);
}

QString ToolSettings::OCR_input()
{
    return read(ocrInput);
}

QString ToolSettings::OCR_output()
{
    return read(ocrOutput);
}

QString ToolSettings::text_editor()
{
    return read(textEditor);
}

bool ToolSettings::set_graphics_editor(const QString &command)
{
    return write(graphicsEditor, command);
}

bool ToolSettings::set_graphics_editor_input(const QString &path)
{
    return write(graphicsEditorInput, path);
}

bool ToolSettings::set_OCR(const QString &command)
{
    return write(ocr, command);
}

bool ToolSettings::set_OCR_input(const QString &path)
{
    return write(ocrInput, path);
}

bool ToolSettings::set_OCR_output(const QString &path)
{
    return write(ocrOutput, path);
}

bool ToolSettings::set_text_editor(const QString &command)
{
    return write(textEditor, command);
}

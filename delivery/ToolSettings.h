#pragma once

#include <QString>

/// The command lines and files of the tools outside, as they are kept between runs.
///
/// Commands hold placeholders for the files, see fill_placeholder(). Paths may begin with "~", see expand_home();
/// they are kept as they were typed.
///
/// Each read and each write is a QSettings object of its own, so that a change is seen by the next call. A value that
/// was never stored reads as its default; one that was stored empty stays empty.
///
/// Errors:  a writer answers whether the settings can be written at all; nobody is told.
/// Threads: any; the settings are the process's own.
class ToolSettings
{
public:
    ToolSettings() = delete;

    static const QString GraphicsEditorFormat; ///< format word in which the editor gets the page
    static const QString OcrFormat; ///< format word in which the recogniser gets the page
    static const QString GraphicsEditorPlaceholder; ///< stands for graphics_editor_input() in graphics_editor()
    static const QString OcrInputPlaceholder; ///< stands for OCR_input() in OCR()
    static const QString OcrOutputPlaceholder; ///< stands for OCR_output() in OCR() and text_editor()

    [[nodiscard]] static QString graphics_editor(); ///< command line of the graphics editor
    [[nodiscard]] static QString graphics_editor_input(); ///< file handed to the editor
    [[nodiscard]] static QString OCR(); ///< command line of the recogniser
    [[nodiscard]] static QString OCR_input(); ///< file handed to the recogniser
    [[nodiscard]] static QString OCR_output(); ///< file that the recogniser writes and the text editor opens
    [[nodiscard]] static QString text_editor(); ///< command line of the text editor

    static bool set_graphics_editor(const QString &command);
    static bool set_graphics_editor_input(const QString &path);
    static bool set_OCR(const QString &command);
    static bool set_OCR_input(const QString &path);
    static bool set_OCR_output(const QString &path);
    static bool set_text_editor(const QString &command);
};

#pragma once

#include "ToolSettings.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ConfigureToolsDialog;
} // namespace Ui

/// Edits the command lines and files of the tools outside. The form is ConfigureToolsDialog.ui.
///
/// OK stores all six fields as they stand, unchecked; Cancel stores nothing. The static readers and writers are those
/// of ToolSettings.
///
/// Threads: GUI thread only.
class ConfigureToolsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ConfigureToolsDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~ConfigureToolsDialog() override;
    Q_DISABLE_COPY_MOVE(ConfigureToolsDialog)

    [[nodiscard]] static QString graphics_editor() { return ToolSettings::graphics_editor(); }
    [[nodiscard]] static QString graphics_editor_input() { return ToolSettings::graphics_editor_input(); }
    [[nodiscard]] static QString OCR() { return ToolSettings::OCR(); }
    [[nodiscard]] static QString OCR_input() { return ToolSettings::OCR_input(); }
    [[nodiscard]] static QString OCR_output() { return ToolSettings::OCR_output(); }
    [[nodiscard]] static QString text_editor() { return ToolSettings::text_editor(); }

    static bool set_graphics_editor(const QString &command) { return ToolSettings::set_graphics_editor(command); }
    static bool set_graphics_editor_input(const QString &path) { return ToolSettings::set_graphics_editor_input(path); }
    static bool set_OCR(const QString &command) { return ToolSettings::set_OCR(command); }
    static bool set_OCR_input(const QString &path) { return ToolSettings::set_OCR_input(path); }
    static bool set_OCR_output(const QString &path) { return ToolSettings::set_OCR_output(path); }
    static bool set_text_editor(const QString &command) { return ToolSettings::set_text_editor(command); }

private slots:
    void slotHelp();

protected slots:
    void accept() override;

private:
    std::unique_ptr<Ui::ConfigureToolsDialog> ui;
};

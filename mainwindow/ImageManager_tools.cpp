#include "BusyScope.h"
#include "ConfigureToolsDialog.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "outside_programs.h"
#include "page_files.h"
#include "Q3Process.h"
#include "tool_commands.h"
#include "ToolSettings.h"
#include "WaitCursor.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QStatusBar>

using namespace Qt::StringLiterals;

// The commands that hand the first page to a program outside. These work on a copy, and nothing comes back.

namespace {

QString path_of(const QString &setting)
{
    return expand_home(setting, QDir::homePath());
}

} // namespace

/// Makes the file of a print job and watches it from then on. On failure nothing is left of it.
bool ImageManager::savePrintFile(const QString &path)
{
    QFile file;
    if (!create_print_file(path, file))
        return false;
    printFileWatch = LeftoverWatch::start(path); // without one the file might stay for ever
    if (printFileWatch && write_print_file(file, firstPageImage()))
        return true;
    QFile::remove(path);
    if (printFileWatch)
        printFileWatch->dismiss();
    printFileWatch.reset();
    return false;
}

void ImageManager::file_print()
{
    if (lprProcess) // one job at a time
        return;
    const QString name = print_file_name();
    if (firstPageImage().isNull() || name.isEmpty())
        return;

    statusBar()->showMessage(tr("Printing..."), 0); // Intended: it stays when the job has ended
    const BusyScope busy(this, currentView(), &viewStatusEnabled);
    const QString path = name + ".png"_L1;
    if (!savePrintFile(path)) {
        QApplication::restoreOverrideCursor();
        return;
    }
    qstrncpy(printFile.data(), QFile::encodeName(path).constData(), printFile.size());
    lprProcess = new Q3Process(this);
    lprProcess->addArgument(u"lpr"_s);
    lprProcess->addArgument(path);
    connect(lprProcess, &Q3Process::processExited, this, &ImageManager::on_lpr_finished);
    // Intended: where there is no lpr the job stays under way, and nothing is printed until the program ends.
    if (lprProcess->start())
        printFileWatch->setReader(lprProcess->processIdentifier());
}

void ImageManager::on_lpr_finished()
{
    delete lprProcess;
    if (printFile.front() != '\0') {
        QFile::remove(QFile::decodeName(printFile.data()));
        printFile.front() = '\0';
    }
    printFileWatch->dismiss();
    printFileWatch.reset();
    lprProcess = nullptr;
    // Intended: takes away what the cursor was set to by whoever did it last; printing itself has set none.
    QApplication::restoreOverrideCursor();
}

bool ImageManager::saveForTool(const QString &path, WritePage write)
{
    const WaitCursor waiting;
    return write(path, firstPageImage());
}

void ImageManager::warnOfTool(const QString &title, const QString &text)
{
    QMessageBox::warning(this, title, text, QMessageBox::Ok);
}

void ImageManager::start_graphics_editor()
{
    const QString path = path_of(ToolSettings::graphics_editor_input());
    if (!saveForTool(path, write_editor_file)) {
        warnOfTool(u"Start Graphics Editor failed"_s, u"Error saving image"_s);
        return;
    }
    const QString command =
        fill_placeholder(ToolSettings::graphics_editor(), ToolSettings::GraphicsEditorPlaceholder, path);
    if (start_in_background(command) == -1)
        qDebug("Unable to execute command %s &", qUtf8Printable(command));
}

void ImageManager::start_OCR()
{
    const QString input = path_of(ToolSettings::OCR_input());
    if (!saveForTool(input, write_recogniser_file)) {
        warnOfTool(u"OCR failed"_s, u"Error saving image"_s);
        return;
    }
    const QString output = path_of(ToolSettings::OCR_output());
    const QString recogniser =
        fill_placeholder(fill_placeholder(ToolSettings::OCR(), ToolSettings::OcrInputPlaceholder, input),
                         ToolSettings::OcrOutputPlaceholder, output);
    {
        const WaitCursor waiting; // over the box too
        const ProgramRun run = run_to_end(recogniser);
        if (run != ProgramRun::Ended) {
            warnOfTool(u"OCR failed"_s,
                       run == ProgramRun::NotStarted ? u"Error starting OCR program"_s
                                                     : u"Error during execution of OCR program"_s);
            return;
        }
    }
    // Intended: the editor comes up also after a recogniser that has failed, and nobody hears of an editor that does
    // not start.
    (void)start_in_background(
        fill_placeholder(ToolSettings::text_editor(), ToolSettings::OcrOutputPlaceholder, output));
}

void ImageManager::configure_tools()
{
    ConfigureToolsDialog dialog(this);
    dialog.setObjectName(u"cfg_tools_dlg"_s);
    QCoreApplication::processEvents();
    if (!isClosed())
        dialog.exec();
}

#include "StartFailureReport.h"

#include "diagnostics.h"

#include <QString>

#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

QtMessageHandler formerHandler = nullptr;
bool isServerMissing = false;

bool is_about(const QMessageLogContext &context, const char *category)
{
    return context.category && std::strcmp(context.category, category) == 0;
}

[[noreturn]] void end_with_line(const QString &reason)
{
    // One line also where the toolkit has more to say: the rest is about reinstalling it.
    write_diagnostic_line("imagemanager: " + reason.section(u'\n', 0, 0).toLocal8Bit());
    std::_Exit(EXIT_FAILURE); // half of the toolkit is up: nothing of it may be taken down
}

void receive(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (is_about(context, "qt.qpa.xcb") && text.startsWith("could not connect to display"_L1))
        isServerMissing = true;
    else if (isServerMissing && type == QtFatalMsg)
        end_with_line(u"cannot reach an X server; set DISPLAY or use -display"_s);
    else if (type == QtFatalMsg)
        end_with_line(text);
    else if (!isServerMissing)
        formerHandler(type, context, text);
}

} // namespace

StartFailureReport::StartFailureReport()
{
    formerHandler = qInstallMessageHandler(receive);
}

StartFailureReport::~StartFailureReport()
{
    qInstallMessageHandler(formerHandler);
}

#include "tiff_diagnostics.h"

#include <QString>

#include <cstdarg>

#include <tiffio.h>

namespace {

extern "C" void tell(const char *module, const char *format, va_list arguments)
{
    const QByteArray text = QString::vasprintf(format, arguments).toLocal8Bit();
    qWarning("%s: %s", module ? module : "TIFF", text.constData());
}

} // namespace

void tell_of_tiff_by_the_toolkit()
{
    TIFFSetWarningHandler(tell);
    TIFFSetErrorHandler(tell);
}

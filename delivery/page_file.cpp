#include "page_file.h"

#include "page_refusal.h"
#include "target_file.h"
#include "WaitCursor.h"

#include <QImageWriter>

bool write_page_file(const QImage &image, const QString &path, const QString &format)
{
    if (image.isNull() || !page_refusal(image, format).isEmpty())
        return false;
    const WaitCursor wait;
    const QImage writable = without_bad_texts(image, format);
    const TargetOutcome outcome =
        write_target(path, [&](TargetFile &file) { return QImageWriter(&file, format.toLatin1()).write(writable); });
    return outcome.step == TargetOutcome::Done;
}

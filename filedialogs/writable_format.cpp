#include "writable_format.h"

#include "ImageFormat.h"
#include "plain_box.h"

#include <QObject>

bool confirm_writable_format(const QString &key, const QList<QByteArray> &writers)
{
    const auto warn = [](const QString &title, const QString &text) {
        (void)show_plain_box(QMessageBox::Warning, nullptr, title, text, QMessageBox::Ok);
    };
    if (key == GraphFormatKey || key == AllFormatKey) {
        warn(QObject::tr("Choose Type"), QObject::tr("Please, choose the type explicitly."));
        return false;
    }
    // The documents write this one without the toolkit.
    if (key.compare(TiffFormatKey, Qt::CaseInsensitive) == 0)
        return true;
    if (writers.contains(key.toLower().toUtf8()) || writers.contains(key.toUpper().toUtf8()))
        return true;
    warn(QObject::tr("Unsupported Format"), QObject::tr("Image format %1 is not supported!").arg(key));
    return false;
}

#pragma once

#include "NextDialog.h"

#include <QFileDialog>
#include <QLineEdit>

/// Works the next modal file dialog.
class NextFileDialog : public NextOf<QFileDialog>
{
public:
    using NextOf::NextOf;

    /// Types a name and presses the button that accepts it.
    static void accept(QFileDialog &dialog, const QString &name)
    {
        dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(name);
        QMetaObject::invokeMethod(&dialog, "accept");
    }
};

#pragma once

#include <QDialog>

class QImage;

/// An older form of PropertiesDialog with captions of its own, built in code.
/// It belongs to the kit; no command uses it.
///
/// Threads: GUI thread only.
class ImagePropertiesDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param image  read here and not kept; a null one has a size of 0
    /// @param zoom   screen pixels per image pixel
    /// @param name   object name, may be null
    ImagePropertiesDialog(const QImage &image, double zoom, QWidget *parent, const char *name, bool modal);
};

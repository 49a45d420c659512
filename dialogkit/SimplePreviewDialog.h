#pragma once

#include "Thumbnail.h"

#include <QDialog>
#include <QString>

class SliderIntAsFixedControl;

/// The slider of a preview dialog.
struct PreviewParameters
{
    int min = 0;
    int max = 0;
    int init = 0;
    int step = 1; ///< page step
    QString label;
};

/// Shows what a transformation makes of a page, with a slider for its parameter or without one.
class SimplePreviewDialog : public QDialog
{
    Q_OBJECT

public:
    enum Kind : int {
        PreviewOnly = 0,
        PreviewWithSlider = 1,
    };

    /// @param image       must have a width and a height; the dialog works on a reduced copy
    /// @param kind        a Kind
    /// @param parameters  not looked at for PreviewOnly
    /// @param name        becomes the object name; may be null
    SimplePreviewDialog(const QString &title, const QImage &image, ImageTransform transform, QWidget *parent, int kind,
                        const PreviewParameters &parameters, const char *name = nullptr, bool modal = false);

    /// Stores the slider's value, and without a slider nothing.
    /// @param[out] out  must not be null
    void value(int *out) const;

public slots:
    void change_preview();
    void change_preview(int i);

private:
    [[nodiscard]] QString shownSize() const;

    int m_kind;
    SliderIntAsFixedControl *m_control = nullptr;
    ImageTransform m_transform;
    Thumbnail *m_thumbnail = nullptr; ///< its accessible description tells the value and the sizes
    QSize m_pageSize;
};

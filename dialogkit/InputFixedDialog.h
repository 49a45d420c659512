#pragma once

#include <QDialog>

class DoubleSliderControl;

/// Asks for a number on a slider.
class InputFixedDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param min, max, init, step  as for DoubleSliderControl
    /// @param decimals              not used: the slider works by the step
    /// @param name                  becomes the object name; may be null
    InputFixedDialog(const QString &title, const QString &label, const QString &toolTip, double min, double max,
                     double init, double step, int decimals, QWidget *parent = nullptr, const char *name = nullptr,
                     bool modal = false);

    /// A whole number of steps.
    [[nodiscard]] double value() const;

private:
    DoubleSliderControl *m_control;
};

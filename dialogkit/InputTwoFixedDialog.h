#pragma once

#include <QDialog>

class FixedSpinBoxControl;

/// Asks for two numbers of one range in fixed-point spin boxes.
/// It belongs to the kit; no command uses it.
class InputTwoFixedDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param min, max, init, step, decimals  as for FixedSpinBox
    /// @param name                            becomes the object name; may be null
    InputTwoFixedDialog(const QString &title, const QString &label1, const QString &toolTip1, const QString &label2,
                        const QString &toolTip2, double min, double max, double init, double step, int decimals,
                        QWidget *parent = nullptr, const char *name = nullptr, bool modal = false);

    /// What FixedSpinBox::value() says, so scaled.
    [[nodiscard]] double first() const;
    [[nodiscard]] double second() const;

private:
    FixedSpinBoxControl *m_first = nullptr;
    FixedSpinBoxControl *m_second = nullptr;
};

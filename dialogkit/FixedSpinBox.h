#pragma once

#include <QSpinBox>

/// A spin box for numbers with decimals that holds, and shows, them scaled to whole numbers.
///
/// Errors:  values that do not fit are corrected, with a qDebug() line that speaks of "DoubleSpinBox".
class FixedSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    /// @param min, max, init, step  unscaled; scaled by 10 to the power of @p decimals and cut
    /// @param decimals              0 to 9
    FixedSpinBox(double min, double max, double init, double step, int decimals, QWidget *parent = nullptr,
                 const char *name = nullptr);

    /// The number on show, which is the scaled one; for "Auto" the lowest number there is, unscaled.
    [[nodiscard]] double value() const;

    /// Text for the number that @p v is the scaled form of, eight characters wide or more.
    /// @return valid until the next call on any FixedSpinBox
    [[nodiscard]] const QString &valueToText(int v) const;
    /// The scaled form of the number on show. Like valueToText(), for users of the box to call; none does.
    [[nodiscard]] int textToValue() const;

private:
    int m_scale = 1; ///< 10 to the power of m_decimals
    int m_decimals;
};

#include "FixedSpinBox.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int AutoValue = -2147483647; ///< also the lowest value; the highest is its opposite
constexpr double Highest = 2147483647.0;

} // namespace

FixedSpinBox::FixedSpinBox(double min, double max, double init, double step, int decimals, QWidget *parent,
                           const char *name) :
    QSpinBox(parent),
    m_decimals(decimals)
{
    setObjectName(QString::fromLatin1(name));
    if (decimals > 0)
        m_scale = static_cast<int>(std::pow(10, decimals));

    if (min * m_scale < -Highest) {
        qDebug("DoubleSpinBox - incorrect min value %g", min);
        min = -Highest / m_scale;
    }
    if (max * m_scale > Highest) {
        qDebug("DoubleSpinBox - incorrect max value %g", max);
        max = Highest / m_scale;
    }
    if (init < min) {
        qDebug("DoubleSpinBox - incorrect init value %g", init);
        init = min;
    }
    if (init > max) {
        qDebug("DoubleSpinBox - incorrect init value %g", init);
        init = max;
    }

    const auto scaled = [this](double value) { return static_cast<int>(value * m_scale); };
    setMinimum(scaled(min));
    setMaximum(scaled(max));
    setValue(scaled(init));
    setSingleStep(scaled(step));
}

double FixedSpinBox::value() const
{
    if (text() == "Auto"_L1)
        return -Highest / m_scale;

    // Intended: not scaled back. The box shows the scaled number, and what it shows is its value.
    return static_cast<double>(text().toFloat());
}

const QString &FixedSpinBox::valueToText(int v) const
{
    static QString result; // one for all boxes
    if (qint64{v} * m_scale == AutoValue)
        result = u"Auto"_s;
    else
        result = QString::asprintf("%8.*f", m_decimals, v / static_cast<double>(m_scale));
    return result;
}

int FixedSpinBox::textToValue() const
{
    if (text() == "Auto"_L1)
        return AutoValue;

    return static_cast<int>(text().toFloat() * static_cast<float>(m_scale));
}

#pragma once

#include "Q3HBox.h"

class QIntAsFixedLabel;

/// The row of numbers above a slider that counts tenths: lowest, current and highest value.
class SliderIntAsFixedLabels : public Q3HBox
{
    Q_OBJECT

public:
    explicit SliderIntAsFixedLabels(QWidget *parent = nullptr, const char *name = nullptr);

    QIntAsFixedLabel *m_min = nullptr;
    QIntAsFixedLabel *m_max = nullptr;
    QIntAsFixedLabel *m_value = nullptr; ///< stands between the two others
};

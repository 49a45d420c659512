#pragma once

#include "Q3HBox.h"

class QLabel;

/// The row of numbers above a slider: lowest, current and highest value, from left to right.
class SliderLabels : public Q3HBox
{
    Q_OBJECT

public:
    explicit SliderLabels(QWidget *parent = nullptr, const char *name = nullptr);

    QLabel *m_min = nullptr;
    QLabel *m_max = nullptr;
    QLabel *m_value = nullptr; ///< stands between the two others
};

#pragma once

#include "LabeledControl.h"

class QLineEdit;

/// A caption above a line of text.
class LineEditControl : public LabeledControl
{
    Q_OBJECT

public:
    /// @param text  what stands there first, in Latin-1
    LineEditControl(const char *caption, const char *text, const char *toolTip, QWidget *parent = nullptr,
                    const char *name = nullptr);

    QLineEdit *m_control;
};

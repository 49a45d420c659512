#pragma once

#include "LabeledControl.h"

/// A caption above a text in a sunken frame.
/// It belongs to the kit; no command uses it.
class LabelControl : public LabeledControl
{
    Q_OBJECT

public:
    /// @param text  in Latin-1
    LabelControl(const char *caption, const char *text, const char *toolTip, QWidget *parent = nullptr,
                 const char *name = nullptr);

    QLabel *m_control;
};

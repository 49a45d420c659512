#pragma once

#include "Q3HBox.h"

class QCheckBox;

/// A check box that carries its own text, beside the labeled controls.
/// It belongs to the kit; no command uses it.
class CheckBoxControl : public Q3HBox
{
    Q_OBJECT

public:
    /// @param text     in Latin-1
    /// @param toolTip  in the local 8-bit encoding
    CheckBoxControl(const char *text, const char *toolTip, QWidget *parent = nullptr, const char *name = nullptr);

    QCheckBox *m_control;
};

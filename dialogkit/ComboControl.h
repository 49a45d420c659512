#pragma once

#include "LabeledControl.h"

class ComboBoxEx;

/// A caption above a combo box without typing.
/// It belongs to the kit; no command uses it.
class ComboControl : public LabeledControl
{
    Q_OBJECT

public:
    ComboControl(const char *caption, const char *toolTip, QWidget *parent = nullptr, const char *name = nullptr);

    ComboBoxEx *m_control;
};

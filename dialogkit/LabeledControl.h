#pragma once

#include "Q3VBox.h"

class QLabel;

/// A caption above one input, which derived classes add as their member m_control.
///
/// In a tool bar the caption comes and goes with the text labels of the main window, if that has a
/// property usesTextLabel and a signal usesTextLabelChanged(bool).
///
/// Texts:     caption and tool tip are in the local 8-bit encoding; they may be null.
/// Ownership: caption and input are children of the control.
class LabeledControl : public Q3VBox
{
    Q_OBJECT

public:
    /// @param toolTip  for caption and input
    /// @param name     becomes the object name; may be null
    LabeledControl(const char *caption, const char *toolTip, QWidget *parent = nullptr, const char *name = nullptr);

    /// Whether the caption shows, or will once the control does.
    [[nodiscard]] bool usesTextLabel() const;

    QLabel *m_label;

public slots:
    void setUsesTextLabel(bool enable);

protected:
    /// Makes the caption speak for @p input, and gives that the tool tip.
    void captionInput(QWidget *input, const char *toolTip) const;

private:
    void followMainWindow();
};

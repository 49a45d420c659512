#pragma once

#include <QLabel>

/// A label for whole numbers that count tenths.
class QIntAsFixedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit QIntAsFixedLabel(QWidget *parent = nullptr) : QLabel(parent) { }

    using QLabel::setNum;

    /// Shows @p v divided by 10. Reached by a call on this class alone: QLabel's slot of the same name
    /// is not virtual and shows @p v as it is. No slider calls it so far.
    virtual void setNum(int v);
};

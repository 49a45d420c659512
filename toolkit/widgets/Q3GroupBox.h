#pragma once

#include <QGroupBox>

class QGridLayout;
class QVBoxLayout;

/// A titled frame that lays its child widgets out in strips, in the order of their creation.
///
/// Horizontal: @c strips columns, filled row by row. Vertical: @c strips rows, filled column by column.
/// The grid keeps to the top of the frame.
///
/// Units:  screen pixels; margin 11 and spacing 5 until others are set.
class Q3GroupBox : public QGroupBox
{
    Q_OBJECT

public:
    /// @param strips  at least 1
    /// @param name    becomes the object name; may be null
    Q3GroupBox(int strips, Qt::Orientation orientation, const QString &title, QWidget *parent = nullptr,
               const char *name = nullptr);

    void setInsideMargin(int margin);
    void setInsideSpacing(int spacing);

    /// Gives a child no more than the size it asks for, at this place of its cell.
    void alignInside(QWidget *child, Qt::Alignment alignment);

protected:
    void childEvent(QChildEvent *event) override;

private:
    QVBoxLayout *m_frame; ///< holds the margin
    QGridLayout *m_grid;
    int m_strips;
    Qt::Orientation m_orientation;
};

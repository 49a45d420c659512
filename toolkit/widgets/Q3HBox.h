#pragma once

#include <QFrame>

class QBoxLayout;

/// A frame that lays its child widgets out in a row, in the order of their creation.
///
/// A widget joins the row by getting this as its parent; nothing has to be called. There is no margin,
/// and no spacing until one is set.
///
/// Units:  screen pixels.
class Q3HBox : public QFrame
{
    Q_OBJECT

public:
    /// @param name  becomes the object name; may be null
    explicit Q3HBox(QWidget *parent = nullptr, const char *name = nullptr, Qt::WindowFlags flags = {});

    void setSpacing(int spacing);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    /// For boxes that run another way; the layout is taken over.
    Q3HBox(QBoxLayout *layout, QWidget *parent, const char *name, Qt::WindowFlags flags);

    void childEvent(QChildEvent *event) override;

private:
    QBoxLayout *m_layout;
};

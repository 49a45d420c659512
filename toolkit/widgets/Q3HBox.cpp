#include "Q3HBox.h"

#include "added_widget.h"

#include <QBoxLayout>

Q3HBox::Q3HBox(QWidget *parent, const char *name, Qt::WindowFlags flags) : Q3HBox(new QHBoxLayout, parent, name, flags)
{
}

Q3HBox::Q3HBox(QBoxLayout *layout, QWidget *parent, const char *name, Qt::WindowFlags flags) :
    QFrame(parent, flags),
    m_layout(layout)
{
    setObjectName(QString::fromLatin1(name));
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    setLayout(m_layout);
}

void Q3HBox::setSpacing(int spacing)
{
    m_layout->setSpacing(spacing);
}

QSize Q3HBox::sizeHint() const
{
    // That of the layout: QFrame's own looks at the frame alone.
    return QWidget::sizeHint(); // NOLINT(bugprone-parent-virtual-call)
}

void Q3HBox::childEvent(QChildEvent *event)
{
    QFrame::childEvent(event);
    if (QWidget *const widget = added_widget(*event))
        m_layout->addWidget(widget);
}

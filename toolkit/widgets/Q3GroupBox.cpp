#include "Q3GroupBox.h"

#include "added_widget.h"

#include <QGridLayout>
#include <QVBoxLayout>

Q3GroupBox::Q3GroupBox(int strips, Qt::Orientation orientation, const QString &title, QWidget *parent,
                       const char *name) :
    QGroupBox(title, parent),
    m_frame(new QVBoxLayout(this)),
    m_grid(new QGridLayout),
    m_strips(strips),
    m_orientation(orientation)
{
    setObjectName(QString::fromLatin1(name));
    m_frame->addLayout(m_grid);
    m_frame->setAlignment(m_grid, Qt::AlignTop);
    setInsideMargin(11);
    setInsideSpacing(5);
}

void Q3GroupBox::setInsideMargin(int margin)
{
    m_frame->setContentsMargins(margin, margin, margin, margin);
}

void Q3GroupBox::setInsideSpacing(int spacing)
{
    m_grid->setSpacing(spacing);
}

void Q3GroupBox::alignInside(QWidget *child, Qt::Alignment alignment)
{
    m_grid->setAlignment(child, alignment);
}

void Q3GroupBox::childEvent(QChildEvent *event)
{
    QGroupBox::childEvent(event);
    QWidget *const widget = added_widget(*event);
    if (!widget)
        return;

    const int along = m_grid->count() / m_strips;
    const int across = m_grid->count() % m_strips;
    if (m_orientation == Qt::Horizontal)
        m_grid->addWidget(widget, along, across);
    else
        m_grid->addWidget(widget, across, along);
}

#include "LabeledControl.h"

#include <QLabel>
#include <QMainWindow>
#include <QMetaMethod>
#include <QToolBar>

LabeledControl::LabeledControl(const char *caption, const char *toolTip, QWidget *parent, const char *name) :
    Q3VBox(parent, name),
    m_label(new QLabel(QString::fromLocal8Bit(caption), this))
{
    setSpacing(5);
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_label->setToolTip(QString::fromLocal8Bit(toolTip));
    followMainWindow();
}

bool LabeledControl::usesTextLabel() const
{
    return m_label->isVisibleTo(this);
}

void LabeledControl::setUsesTextLabel(bool enable)
{
    if (enable == usesTextLabel())
        return;

    m_label->setVisible(enable);
    if (isVisible()) {
        update();
        updateGeometry();
    }
}

void LabeledControl::captionInput(QWidget *input, const char *toolTip) const
{
    m_label->setBuddy(input);
    input->setAccessibleName(m_label->text());
    input->setToolTip(QString::fromLocal8Bit(toolTip));
}

void LabeledControl::followMainWindow()
{
    const auto *const toolBar = qobject_cast<QToolBar *>(parentWidget());
    const auto *const window = toolBar ? qobject_cast<QMainWindow *>(toolBar->parentWidget()) : nullptr;
    if (!window)
        return;

    // By name: no class below the main window knows which one has this setting.
    const QMetaObject *const meta = window->metaObject();
    const int changed = meta->indexOfSignal("usesTextLabelChanged(bool)");
    if (changed < 0)
        return;

    const int slot = staticMetaObject.indexOfSlot("setUsesTextLabel(bool)");
    connect(window, meta->method(changed), this, staticMetaObject.method(slot));
    setUsesTextLabel(window->property("usesTextLabel").toBool());
}

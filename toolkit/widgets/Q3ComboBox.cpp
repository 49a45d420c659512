#include "Q3ComboBox.h"

Q3ComboBox::Q3ComboBox(bool rw, QWidget *parent, const char *name) : QComboBox(parent)
{
    setObjectName(QString::fromLatin1(name));
    setEditable(rw);
}

void Q3ComboBox::insertItem(const QString &text, int index)
{
    QComboBox::insertItem(index < 0 ? count() : index, text);
}

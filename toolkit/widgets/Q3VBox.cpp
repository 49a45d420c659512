#include "Q3VBox.h"

#include <QBoxLayout>

Q3VBox::Q3VBox(QWidget *parent, const char *name, Qt::WindowFlags flags) : Q3HBox(new QVBoxLayout, parent, name, flags)
{
}

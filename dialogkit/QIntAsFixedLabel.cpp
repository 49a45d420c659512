#include "QIntAsFixedLabel.h"

void QIntAsFixedLabel::setNum(int v)
{
    QLabel::setNum(v / 10.0);
}

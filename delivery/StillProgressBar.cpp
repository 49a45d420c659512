#include "StillProgressBar.h"

#include <QStyleOptionProgressBar>

StillProgressBar::StillProgressBar(QWidget *parent) : QProgressBar(parent) { }

StillProgressBar::~StillProgressBar() = default;

void StillProgressBar::initStyleOption(QStyleOptionProgressBar *option) const
{
    QProgressBar::initStyleOption(option);
    if (option->minimum != option->maximum)
        return;
    option->maximum = option->minimum + 1;
    option->progress = option->minimum;
}

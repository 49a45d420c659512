#pragma once

#include "Q3HBox.h"

/// A frame that lays its child widgets out in a column; in all else a Q3HBox.
class Q3VBox : public Q3HBox
{
    Q_OBJECT

public:
    explicit Q3VBox(QWidget *parent = nullptr, const char *name = nullptr, Qt::WindowFlags flags = {});
};

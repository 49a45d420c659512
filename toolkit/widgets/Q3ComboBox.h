#pragma once

#include <QComboBox>

/// A combo box whose entries are inserted by text first and place second.
class Q3ComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// @param rw    whether the user may type
    /// @param name  becomes the object name; may be null
    explicit Q3ComboBox(bool rw, QWidget *parent = nullptr, const char *name = nullptr);

    /// Inserts an entry before the one at @p index, at the end for -1.
    void insertItem(const QString &text, int index = -1);

    /// Shows the entry at @p index; unlike a pick by the user this activates nothing.
    void setCurrentItem(int index) { setCurrentIndex(index); }
    /// Its counterpart, which nobody calls so far.
    [[nodiscard]] int currentItem() const { return currentIndex(); }
};

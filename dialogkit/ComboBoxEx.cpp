#include "ComboBoxEx.h"

using namespace Qt::StringLiterals;

ComboBoxEx::ComboBoxEx(bool rw, QWidget *parent, const char *name) : Q3ComboBox(rw, parent, name)
{
    connect(this, &QComboBox::textActivated, this, &ComboBoxEx::onActivated);
}

ComboBoxEx::ComboBoxEx(QWidget *parent, const char *name) : ComboBoxEx(false, parent, name) { }

void ComboBoxEx::insertTranslated(const QString &shown, const QString &orig)
{
    insertItem(shown);
    m_translations[orig] = shown;
}

void ComboBoxEx::onActivated(const QString &text)
{
    emit translationActivated(m_translations.key(text)); // QMap::key takes the first in key order
}

void ComboBoxEx::setNumber(int n)
{
    setString2(u"%1"_s.arg(n));
}

void ComboBoxEx::setNumber(double d)
{
    setString2(u"%1"_s.arg(d));
}

void ComboBoxEx::setString2(const QString &newText)
{
    const QString text = m_translations.value(newText, newText);
    // Every entry begins with nothing, but an empty text stands for none of them.
    const int position = text.isEmpty() ? -1 : findText(text, Qt::MatchStartsWith);
    if (position >= 0)
        setCurrentItem(position);
}

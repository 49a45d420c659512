#pragma once

#include "Q3ComboBox.h"

#include <QMap>

/// A combo box that shows translated texts and speaks to its owner in the untranslated ones.
class ComboBoxEx : public Q3ComboBox
{
    Q_OBJECT

public:
    /// @param rw    whether the user may type
    /// @param name  becomes the object name; may be null
    explicit ComboBoxEx(bool rw, QWidget *parent = nullptr, const char *name = nullptr);
    explicit ComboBoxEx(QWidget *parent = nullptr, const char *name = nullptr);

    /// Appends the entry @p shown, which stands for @p orig. For an @p orig that is known already the
    /// former entry stays in the list, and the new text takes its place in the pair. No box is filled so.
    void insertTranslated(const QString &shown, const QString &orig);

signals:
    /// The user has picked an entry.
    /// @param orig  what stands for it, the first in alphabetical order if several do; null if none does
    void translationActivated(QString orig);

private slots: // NOLINT(readability-redundant-access-specifiers): before the others in the meta-object
    void onActivated(const QString &text);

public slots:
    /// Shows the entry that begins with the number as text.
    void setNumber(int n);
    void setNumber(double d);

    /// Shows the first entry that begins with what @p newText stands for or, if it stands for nothing,
    /// with @p newText itself, in capitals or not. Without such an entry nothing changes.
    void setString2(const QString &newText);

private:
    QMap<QString, QString> m_translations; ///< untranslated to shown
};

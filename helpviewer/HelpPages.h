#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QUrl>

/// The pages of a help directory, in the reader's language where there is one.
///
/// A page or picture has one address, that of the file in the directory itself, whatever language is shown:
/// file:<directory>/<name>. What is read for it is <directory>/<language>/<name> where that exists, else
/// <directory>/<name>. So links between pages are the same in every language.
///
/// Boundary: no file outside the directory is ever read, by whatever address or link on disk.
/// Errors:   a page that cannot be read becomes one that says so.
class HelpPages
{
    Q_DECLARE_TR_FUNCTIONS(HelpPages)

public:
    /// Where a link leads.
    enum class Target {
        Page, ///< a file of this directory: to be shown here
        Desktop, ///< "http", "https" and "mailto": for the programs of the desktop
        Refused, ///< anything else
    };

    struct Entry
    {
        QString title;
        QUrl address;
        bool operator==(const Entry &) const = default;
    };

    /// @param directory  of the pages; it need not exist
    /// @param overview   file name of the page that stands for the whole, may be empty
    /// @param locale     such as "de_AT": its directories are "de_AT", then "de"
    HelpPages(const QString &directory, QString overview, const QString &locale);

    /// The address of a page by its name, that of the overview for an empty one. A name that leads out of the directory
    /// gives the address of a page that does not exist.
    [[nodiscard]] QUrl address(const QString &name) const;
    [[nodiscard]] Target target(const QUrl &address) const;

    /// The bytes of a page or picture in the reader's language; null where there is none to be shown.
    [[nodiscard]] QByteArray contents(const QUrl &address) const;
    /// The page as HTML. One that does not exist is a page that says so, with the overview beneath.
    [[nodiscard]] QString html(const QUrl &address) const;
    /// The links of the overview to pages of this directory, in order, each page once. The overview itself comes first.
    [[nodiscard]] QList<Entry> contentsList() const;

private:
    /// The path below the directory, empty for an address that is none of it.
    [[nodiscard]] QString nameOf(const QUrl &address) const;

    QString m_root; ///< absolute
    QString m_overview;
    QStringList m_languages;
};

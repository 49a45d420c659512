#include "HelpPages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The file's bytes if it lies in the directory, links on disk followed.
QByteArray read_below(const QString &directory, const QString &path)
{
    const QFileInfo info(path);
    const QString inside = QFileInfo(directory).canonicalFilePath() + u'/';
    if (!info.isFile() || !info.canonicalFilePath().startsWith(inside))
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    return bytes.isNull() ? QByteArray("") : bytes; // an empty page is a page
}

/// Calls @p visit with text and target of each link, in order. A link whose text changes its look in between is one.
template <typename Visit> void for_each_link(const QString &html, Visit visit)
{
    QTextDocument document;
    document.setHtml(html);
    QString href;
    QString text;
    const auto finish = [&] {
        if (!href.isEmpty())
            visit(text.simplified(), href);
        href.clear();
        text.clear();
    };
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.anchorHref() != href) {
                finish();
                href = format.anchorHref();
            }
            if (!href.isEmpty())
                text += part.fragment().text();
        }
        finish();
    }
}

} // namespace

HelpPages::HelpPages(const QString &directory, QString overview, const QString &locale) :
    m_root(QDir::cleanPath(QDir(directory).absolutePath())),
    m_overview(std::move(overview)),
    m_languages{locale}
{
    if (const qsizetype end = locale.indexOf(u'_'); end > 0)
        m_languages.append(locale.left(end));
    m_languages.removeAll(QString());
}

QUrl HelpPages::address(const QString &name) const
{
    return QUrl::fromLocalFile(m_root + u'/' + (name.isEmpty() ? m_overview : name));
}

QString HelpPages::nameOf(const QUrl &address) const
{
    if (!address.isLocalFile() || !address.host().isEmpty())
        return {};
    const QString path = QDir::cleanPath(address.toLocalFile());
    const QString inside = m_root.endsWith(u'/') ? m_root : m_root + u'/';
    return path.startsWith(inside) ? path.mid(inside.size()) : QString();
}

HelpPages::Target HelpPages::target(const QUrl &address) const
{
    const QString scheme = address.scheme().toLower();
    if (scheme == "http"_L1 || scheme == "https"_L1 || scheme == "mailto"_L1)
        return Target::Desktop;
    return nameOf(address).isEmpty() ? Target::Refused : Target::Page;
}

QByteArray HelpPages::contents(const QUrl &address) const
{
    const QString name = nameOf(address);
    if (name.isEmpty())
        return {};
    for (const QString &language : m_languages) {
        QByteArray bytes = read_below(m_root, m_root + u'/' + language + u'/' + name);
        if (!bytes.isNull())
            return bytes;
    }
    return read_below(m_root, m_root + u'/' + name);
}

QString HelpPages::html(const QUrl &address) const
{
    const QByteArray page = contents(address);
    if (!page.isNull())
        return QString::fromUtf8(page);

    const QString wanted = address.isLocalFile() ? QFileInfo(address.path()).fileName() : address.toString();
    const QString sentence = QFileInfo(m_root).isDir()
        ? tr("There is no help page \"%1\".").arg(wanted)
        : tr("The help pages are not installed: there is no directory \"%1\".").arg(m_root);
    QString notice =
        u"<h1>"_s + tr("Page not found").toHtmlEscaped() + u"</h1><p>"_s + sentence.toHtmlEscaped() + u"</p>"_s;
    const QByteArray overview = contents(this->address(m_overview));
    if (overview.isNull())
        return notice;
    // The overview is a page of its own: the notice goes to the head of its body.
    const QString below = QString::fromUtf8(overview);
    const qsizetype body = below.indexOf("<body"_L1, 0, Qt::CaseInsensitive);
    const qsizetype start = body < 0 ? 0 : below.indexOf(u'>', body) + 1;
    return below.left(start) + notice + u"<hr>"_s + below.mid(start);
}

QList<HelpPages::Entry> HelpPages::contentsList() const
{
    const QUrl overview = address(m_overview);
    const QByteArray page = contents(overview);
    if (page.isNull())
        return {};

    const QString html = QString::fromUtf8(page);
    QTextDocument document;
    document.setHtml(html);
    QList<Entry> entries{{document.metaInformation(QTextDocument::DocumentTitle), overview}};
    for_each_link(html, [&](const QString &title, const QString &href) {
        const QUrl linked = overview.resolved(QUrl(href)).adjusted(QUrl::RemoveFragment);
        const bool known = std::ranges::any_of(entries, [&](const Entry &entry) { return entry.address == linked; });
        if (!known && target(linked) == Target::Page)
            entries.append({title, linked});
    });
    return entries;
}

#include "Q3Url.h"

#include <QStringList>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr auto LocalProtocol = "file"_L1;

QString decoded(QStringView text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}

QString encoded(const QString &text, const QByteArray &plain = {})
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text, plain));
}

} // namespace

Q3Url::Q3Url(const QString &text)
{
    const QString localMark = LocalProtocol + u':';
    if (text.startsWith(localMark)) {
        protocol_ = LocalProtocol;
        path_ = text.sliced(localMark.size());
        return;
    }
    const QString mark = u"://"_s;
    const qsizetype end = text.indexOf(mark);
    if (end < 0) {
        protocol_ = LocalProtocol;
        path_ = text;
        return;
    }
    protocol_ = text.first(end);
    const QString rest = text.sliced(end + mark.size());
    const qsizetype slash = rest.indexOf(u'/');
    parseAuthority(slash < 0 ? rest : rest.first(slash));
    path_ = slash < 0 ? u"/"_s : rest.sliced(slash);
}

QString Q3Url::cleanPath() const
{
    QStringList parts;
    for (const QString &part : path_.split(u'/', Qt::SkipEmptyParts)) {
        if (part == ".."_L1)
            parts.resize(qMax(qsizetype{0}, parts.size() - 1));
        else if (part != "."_L1)
            parts.append(part);
    }
    return u'/' + parts.join(u'/');
}

QString Q3Url::fileName() const
{
    return path_.sliced(path_.lastIndexOf(u'/') + 1);
}

bool Q3Url::isLocalFile() const
{
    return protocol_ == LocalProtocol;
}

QString Q3Url::toString() const
{
    if (isLocalFile())
        return LocalProtocol + u':' + path_;
    QString text = protocol_ + "://"_L1;
    if (!user_.isEmpty() || !password_.isEmpty()) {
        text += encoded(user_);
        if (!password_.isEmpty())
            text += u':' + encoded(password_);
        text += u'@';
    }
    const QString host = encoded(host_, ":");
    text += host.contains(u':') ? u'[' + host + u']' : host;
    if (port_ >= 0)
        text += u':' + QString::number(port_);
    return text + cleanPath();
}

void Q3Url::parseAuthority(const QString &text)
{
    const qsizetype at = text.lastIndexOf(u'@');
    if (at >= 0) {
        const QString login = text.first(at);
        const qsizetype colon = login.indexOf(u':');
        user_ = decoded(colon < 0 ? login : login.first(colon));
        password_ = colon < 0 ? QString() : decoded(login.sliced(colon + 1));
    }
    QString place = text.sliced(at + 1);
    const qsizetype colon = place.lastIndexOf(u':');
    const bool isBracketed = place.startsWith(u'[') && place.contains(u']');
    // Several colons without brackets are an address in figures.
    if (colon >= 0 && (isBracketed ? colon > place.lastIndexOf(u']') : place.count(u':') == 1)) {
        bool isNumber = false;
        const ushort number = QStringView(place).sliced(colon + 1).toUShort(&isNumber);
        if (isNumber) {
            port_ = number;
            place.truncate(colon);
        }
    }
    if (place.startsWith(u'[') && place.endsWith(u']'))
        place = place.sliced(1, place.size() - 2);
    host_ = decoded(place);
}

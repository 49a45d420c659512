#pragma once

#include <QString>

/// The parts of a URL and its text.
///
/// "file:" and a path is a local file. Everything else is protocol, "://", user and password if there are any, host,
/// port if there is one, path.
///
/// Intended: a path is taken as it stands, so a "#", a "?" or a "%41" in it is part of a name; whatever a file is
/// called, the text leads to this file. What else would be taken for a mark in the text (an "@" in a password, a colon
/// in a host) is percent-encoded there, and a host with a colon stands in brackets.
class Q3Url
{
public:
    Q3Url() = default;
    explicit Q3Url(const QString &text);

    [[nodiscard]] const QString &protocol() const { return protocol_; }
    [[nodiscard]] const QString &user() const { return user_; }
    [[nodiscard]] const QString &password() const { return password_; }
    [[nodiscard]] const QString &host() const { return host_; }
    [[nodiscard]] int port() const { return port_; }
    /// As it was set.
    [[nodiscard]] const QString &path() const { return path_; }
    /// From "/" on; without empty parts, "." and "..".
    [[nodiscard]] QString cleanPath() const;
    /// The path's last part.
    [[nodiscard]] QString fileName() const;

    void setUser(const QString &user) { user_ = user; }
    void setPassword(const QString &password) { password_ = password; }
    void setHost(const QString &host) { host_ = host; }
    /// @param port  -1 for none
    void setPort(int port) { port_ = port; }
    void setPath(const QString &path) { path_ = path; }

    [[nodiscard]] bool isLocalFile() const;
    [[nodiscard]] QString toString() const;

private:
    void parseAuthority(const QString &text);

    QString protocol_;
    QString user_;
    QString password_;
    QString host_;
    int port_ = -1;
    QString path_;
};

// Messages with large attachments, beside the toolkit's own coder and curl.

#include "mail_message.h"
#include "MailSink.h"
#include "process_memory.h"
#include "Row.h"
#include "Smtp.h"

#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <memory>
#include <sstream>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr qsizetype AttachmentBytes = 50'000'000;
constexpr qsizetype LineCharacters = 80;

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Bytes in no order.
QByteArray attachment_bytes()
{
    QByteArray bytes(AttachmentBytes, Qt::Uninitialized);
    quint32 state = 1;
    for (char &byte : bytes)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

const MailContent content{.from = u"ann@example.test"_s,
                          .to = u"bob@example.test"_s,
                          .subject = u"scan"_s,
                          .body = u"Hello"_s,
                          .attachmentPath = u"scan.bin"_s};

/// Sends a file, in the event loop of this process.
/// @return whether the session has come to its end
bool send_mail(const QString &path, quint16 port)
{
    QEventLoop loop;
    bool isSent = false;
    const QString host = u"127.0.0.1"_s;
    Smtp smtp(host, QString::number(port), {}, {}, content.from, u"bob@"_s + host, content.subject, content.body, path);
    QObject::connect(&smtp, &Smtp::completed, &loop, [&] {
        isSent = true;
        loop.quit();
    });
    loop.exec();
    return isSent;
}

/// The attachment as a file, and what the sender makes of it.
struct MessageFiles
{
    MessageFiles()
    {
        const QByteArray bytes = attachment_bytes();
        QFile attachment(attachmentPath);
        QFile message(messagePath);
        std::istringstream stream(bytes.toStdString());
        const QByteArray text = compose_message(content, stream, std::time(nullptr)).chopped(1).toUtf8();
        isWritten = attachment.open(QIODevice::WriteOnly) && attachment.write(bytes) == bytes.size()
            && message.open(QIODevice::WriteOnly) && message.write(text) == text.size();
    }

    QTemporaryDir directory;
    QString attachmentPath = directory.filePath(u"scan.bin"_s);
    QString messagePath = directory.filePath(u"message"_s);
    bool isWritten = false;
};

Side our_composition()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto stream = std::make_shared<std::istringstream>(attachment_bytes().toStdString());
        return [=]() -> std::optional<double> {
            stream->clear();
            stream->seekg(0);
            const Clock::time_point start = Clock::now();
            const QString message = compose_message(content, *stream, std::time(nullptr));
            return message.size() > AttachmentBytes ? std::optional(seconds_since(start)) : std::nullopt;
        };
    };
    return {u"compose_message"_s, Side::OwnProcess, prepare};
}

Side plain_composition()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto bytes = std::make_shared<QByteArray>(attachment_bytes());
        return [=]() -> std::optional<double> {
            const Clock::time_point start = Clock::now();
            const QByteArray all = bytes->toBase64();
            QString lines;
            lines.reserve(all.size() / LineCharacters * (LineCharacters + 2) + LineCharacters + 2);
            for (qsizetype i = 0; i < all.size(); i += LineCharacters)
                lines += QLatin1StringView(all.constData() + i, std::min(LineCharacters, all.size() - i)) + "\r\n"_L1;
            return lines.size() > all.size() ? std::optional(seconds_since(start)) : std::nullopt;
        };
    };
    return {u"toBase64 and lines"_s, Side::OwnProcess, prepare};
}

/// The most memory above what was held before, or what the characters of the message take.
Side composition_memory(bool isMeasured)
{
    const auto prepare = [=](const Surroundings & /*surroundings*/) -> Round {
        const auto files = std::make_shared<MessageFiles>();
        return [=]() -> std::optional<double> {
            if (!isMeasured)
                return static_cast<double>(QFile(files->messagePath).size()) * 2;
            const double before = resident_memory();
            restart_peak_count();
            const Smtp smtp({}, {}, {}, {}, content.from, content.to, content.subject, content.body,
                            files->attachmentPath);
            return files->isWritten ? std::optional(peak_memory() - before) : std::nullopt;
        };
    };
    return {isMeasured ? u"Smtp"_s : u"characters x 2"_s, Side::OwnProcess, prepare};
}

Side our_send()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto files = std::make_shared<MessageFiles>();
        const auto sink = std::make_shared<MailSink>();
        return [=]() -> std::optional<double> {
            const bool isGood = files->isWritten && send_mail(files->attachmentPath, sink->port())
                && sink->byteCount() > AttachmentBytes;
            return isGood ? sink->takeSeconds() : std::nullopt;
        };
    };
    return {u"Smtp"_s, Side::OwnProcess, prepare};
}

Side curl_send()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto files = std::make_shared<MessageFiles>();
        const auto sink = std::make_shared<MailSink>();
        return [=]() -> std::optional<double> {
            const int status =
                QProcess::execute(u"curl"_s,
                                  {u"--silent"_s, u"--mail-from"_s, content.from, u"--mail-rcpt"_s, content.to,
                                   u"--upload-file"_s, files->messagePath, u"smtp://127.0.0.1:%1"_s.arg(sink->port())});
            return status == 0 && sink->byteCount() > AttachmentBytes ? sink->takeSeconds() : std::nullopt;
        };
    };
    return {u"curl"_s, Side::OwnProcess, prepare};
}

/// The longest time between two turns of the event loop, from the first one on, while a message goes out.
Side longest_turn()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto files = std::make_shared<MessageFiles>();
        const auto sink = std::make_shared<MailSink>();
        return [=]() -> std::optional<double> {
            QTimer timer;
            double longest = 0;
            std::optional<Clock::time_point> last; // none before the message is composed
            QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
                if (last)
                    longest = std::max(longest, seconds_since(*last));
                last = Clock::now();
            });
            timer.start(1ms);
            return send_mail(files->attachmentPath, sink->port()) ? std::optional(longest) : std::nullopt;
        };
    };
    return {u"Smtp"_s, Side::OwnProcess, prepare};
}

} // namespace

QList<Row> mail_rows()
{
    return {
        {85,
         u"compose a message of 50 MB"_s,
         {{u"toBase64 and lines"_s, Bar::SecondsRatio, 0.8, our_composition(), plain_composition()}}},
        {86,
         u"peak memory of that"_s,
         {{u"characters x 2"_s, Bar::BytesRatio, 1.15, composition_memory(true), composition_memory(false)}}},
        {87, u"send it, from 354 to its end"_s, {{u"curl"_s, Bar::SecondsRatio, 1.3, our_send(), curl_send()}}},
        {88, u"longest turn of the event loop during it"_s, {{u"-"_s, Bar::Seconds, 0.050, longest_turn(), {}}}},
    };
}

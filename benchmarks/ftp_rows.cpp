// Uploads by FTP, beside curl.

#include "FtpForm.h"
#include "FtpSink.h"
#include "network_protocols.h"
#include "process_memory.h"
#include "Q3UrlOperator.h"
#include "Row.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryFile>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr qint64 FileBytes = 139'199'550; ///< a page of A4 at 600 dpi with 32 bits a pixel, and its header

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A file of the size of a page, on the disk's pages in memory.
struct UploadedFile
{
    UploadedFile()
    {
        const QByteArray block(1 << 20, 'x');
        isWritten = file.open();
        for (qint64 written = 0; isWritten && written < FileBytes; written += block.size())
            isWritten = file.write(block.constData(), std::min<qint64>(block.size(), FileBytes - written)) > 0;
        isWritten = isWritten && file.flush();
    }

    QTemporaryFile file;
    bool isWritten = false;
};

/// An upload by our own operator, in the event loop of this process.
class Upload
{
public:
    Upload(const QString &path, quint16 port)
    {
        q3InitNetworkProtocols();
        QObject::connect(&op, &Q3UrlOperator::finished, &loop, [this](const Q3NetworkOperation *operation) {
            if (operation->operation() != Q3NetworkOperation::OpPut)
                return;
            isDone = operation->state() == Q3NetworkOperation::StDone;
            loop.quit();
        });
        (void)op.copy(u"file:"_s + path, u"ftp://127.0.0.1:%1/"_s.arg(port), false, true);
    }

    [[nodiscard]] bool run()
    {
        loop.exec();
        return isDone;
    }
    void runFor(std::chrono::milliseconds time)
    {
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }

private:
    Q3UrlOperator op;
    QEventLoop loop;
    bool isDone = false;
};

Side our_upload()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto file = std::make_shared<UploadedFile>();
        const auto sink = std::make_shared<FtpSink>();
        return [=]() -> std::optional<double> {
            Upload upload(file->file.fileName(), sink->port());
            const bool isGood = file->isWritten && upload.run() && sink->byteCount() == FileBytes;
            return isGood ? sink->takeSeconds() : std::nullopt;
        };
    };
    return {u"Q3UrlOperator"_s, Side::OwnProcess, prepare};
}

Side curl_upload()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto file = std::make_shared<UploadedFile>();
        const auto sink = std::make_shared<FtpSink>();
        return [=]() -> std::optional<double> {
            const QString target = u"ftp://127.0.0.1:%1/x"_s.arg(sink->port());
            const int status =
                QProcess::execute(u"curl"_s, {u"--silent"_s, u"--upload-file"_s, file->file.fileName(), target});
            return status == 0 && sink->byteCount() == FileBytes ? sink->takeSeconds() : std::nullopt;
        };
    };
    return {u"curl -T"_s, Side::OwnProcess, prepare};
}

/// The most memory with the form on show, while a file is uploaded or not.
Side form_memory(bool isUploading)
{
    const auto prepare = [=](const Surroundings & /*surroundings*/) -> Round {
        const auto file = std::make_shared<UploadedFile>();
        const auto sink = std::make_shared<FtpSink>();
        const auto page = std::make_shared<QImage>(8, 8, QImage::Format_RGB32);
        const auto form = std::make_shared<FtpForm>(page.get());
        form->show();
        return [=]() -> std::optional<double> {
            (void)page; // the form borrows it
            QCoreApplication::processEvents();
            restart_peak_count();
            if (isUploading && !Upload(file->file.fileName(), sink->port()).run())
                return {};
            return peak_memory();
        };
    };
    return {isUploading ? u"upload"_s : u"idle form"_s, Side::OwnProcess, prepare};
}

/// The longest time between two turns of the event loop while a file is uploaded.
Side longest_turn()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto file = std::make_shared<UploadedFile>();
        const auto sink = std::make_shared<FtpSink>();
        return [=]() -> std::optional<double> {
            QTimer timer;
            double longest = 0;
            Clock::time_point last = Clock::now();
            QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
                longest = std::max(longest, seconds_since(last));
                last = Clock::now();
            });
            timer.start(1ms);
            Upload upload(file->file.fileName(), sink->port());
            return upload.run() ? std::optional(longest) : std::nullopt;
        };
    };
    return {u"Q3UrlOperator"_s, Side::OwnProcess, prepare};
}

double processor_seconds()
{
    rusage usage = {};
    ::getrusage(RUSAGE_THREAD, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// What a stalled upload takes of the processor.
Side stalled_upload()
{
    const auto prepare = [](const Surroundings & /*surroundings*/) -> Round {
        const auto file = std::make_shared<UploadedFile>();
        const auto sink = std::make_shared<FtpSink>(true);
        return [=]() -> std::optional<double> {
            Upload upload(file->file.fileName(), sink->port());
            upload.runFor(3s); // until the network is full
            const double before = processor_seconds();
            upload.runFor(10s);
            return processor_seconds() - before;
        };
    };
    return {u"Q3UrlOperator"_s, Side::OwnProcess, prepare};
}

} // namespace

QList<Row> ftp_rows()
{
    return {
        {81,
         u"upload of 139 MB, from STOR to 226"_s,
         {{u"curl -T"_s, Bar::SecondsRatio, 1.15, our_upload(), curl_upload()}}},
        {82,
         u"peak memory of an upload of 139 MB"_s,
         {{u"idle form"_s, Bar::BytesExcess, 2.0, form_memory(true), form_memory(false)}}},
        {83, u"longest turn of the event loop during it"_s, {{u"-"_s, Bar::Seconds, 0.050, longest_turn(), {}}}},
        {84, u"processor time of a stall of 10 s"_s, {{u"-"_s, Bar::Seconds, 0.010, stalled_upload(), {}}}},
    };
}

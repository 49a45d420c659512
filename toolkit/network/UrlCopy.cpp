#include "UrlCopy.h"

#include "FtpUpload.h"
#include "Q3UrlOperator.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace {

constexpr quint16 FtpPort = 21;
constexpr qint64 BlocksOfFile = 100; ///< a get reads so many, within the bounds of a block
constexpr qint64 SmallestBlock = 1024;
constexpr qint64 LargestBlock = 1048576;

} // namespace

UrlCopy::UrlCopy(const Q3Url &source, const QString &targetText, bool move, Q3UrlOperator *parent) :
    QObject(parent),
    owner(parent),
    path(source.path()),
    target(targetText),
    get(new Q3NetworkOperation(Q3NetworkOperation::OpGet, {source.toString()}, parent)),
    put(new Q3NetworkOperation(Q3NetworkOperation::OpPut, {targetText}, parent))
{
    if (move)
        remove = new Q3NetworkOperation(Q3NetworkOperation::OpRemove, {source.toString()}, parent);
    QMetaObject::invokeMethod(this, &UrlCopy::startGet, Qt::QueuedConnection);
}

UrlCopy::~UrlCopy() = default;

QList<Q3NetworkOperation *> UrlCopy::operations() const
{
    return remove ? QList<Q3NetworkOperation *>{get, put, remove} : QList<Q3NetworkOperation *>{get, put};
}

void UrlCopy::startGet()
{
    const QPointer<UrlCopy> self(this);
    get->setState(Q3NetworkOperation::StInProgress);
    emit owner->start(get);
    if (!self)
        return;
    if (!file.open(path)) {
        failGet();
        return;
    }
    size = file.size();
    tellProgress(0, get);
    if (!self)
        return;
    if (size == 0)
        endGet();
    else
        QMetaObject::invokeMethod(this, &UrlCopy::getBlock, Qt::QueuedConnection);
}

void UrlCopy::getBlock()
{
    const QPointer<UrlCopy> self(this);
    const std::optional<qint64> count = readBlock(std::clamp(size / BlocksOfFile, SmallestBlock, LargestBlock));
    if (!self)
        return;
    if (!count) {
        failGet();
        return;
    }
    tellProgress(done, get);
    if (!self)
        return;
    done += *count;
    // The file may have become shorter, and it may grow faster than it is read.
    if (*count > 0 && done < size) {
        QMetaObject::invokeMethod(this, &UrlCopy::getBlock, Qt::QueuedConnection);
        return;
    }
    tellProgress(size, get);
    if (self)
        endGet();
}

/// Tells the next block to those who want it. For nobody its memory is not worth while.
std::optional<qint64> UrlCopy::readBlock(qint64 atMost)
{
    if (!owner->isDataHeard())
        return file.skim(atMost);
    const std::optional<QByteArray> block = file.read(atMost);
    if (!block)
        return std::nullopt;
    emit owner->data(*block, get);
    return block->size();
}

void UrlCopy::endGet()
{
    get->setState(Q3NetworkOperation::StDone);
    QMetaObject::invokeMethod(this, &UrlCopy::startPut, Qt::QueuedConnection);
    emit owner->finished(get);
}

void UrlCopy::failGet()
{
    get->fail(Q3NetworkOperation::ErrGet, tr("Could not open\n%1").arg(path));
    end();
    emit owner->finished(get);
}

void UrlCopy::startPut()
{
    const QPointer<UrlCopy> self(this);
    put->setState(Q3NetworkOperation::StInProgress);
    emit owner->start(put);
    if (!self)
        return;
    (void)file.rewind(); // what cannot be read again is found when it is read
    size = file.size();
    makeUpload();
    upload->start();
}

void UrlCopy::makeUpload()
{
    const FtpRequest request{.host = target.host(),
                             .user = target.user(),
                             .password = target.password(),
                             .path = target.cleanPath(),
                             .size = size};
    upload = new FtpUpload(request, target.port() < 0 ? FtpPort : static_cast<quint16>(target.port()), file, this);
    const auto tell = [this](Q3NetworkOperation::ConnectionState state, const QString &message) {
        emit owner->connectionStateChanged(state, message.arg(target.host()));
    };
    connect(upload, &FtpUpload::hostFound, this,
            [tell] { tell(Q3NetworkOperation::ConHostFound, tr("Host %1 found")); });
    connect(upload, &FtpUpload::connected, this,
            [tell] { tell(Q3NetworkOperation::ConConnected, tr("Connected to host %1")); });
    connect(upload, &FtpUpload::closed, this,
            [tell] { tell(Q3NetworkOperation::ConClosed, tr("Connection to %1 closed")); });
    connect(upload, &FtpUpload::begun, this, [this] { tellProgress(0, put); });
    connect(upload, &FtpUpload::progressed, this, [this](qint64 sent) { tellProgress(sent, put); });
    connect(upload, &FtpUpload::failed, this, &UrlCopy::failPut);
    connect(upload, &FtpUpload::succeeded, this, &UrlCopy::endPut);
}

void UrlCopy::failPut(int code, const QString &text)
{
    put->fail(static_cast<Q3NetworkOperation::Error>(code), text);
    end();
    emit owner->finished(put);
}

void UrlCopy::endPut()
{
    const QPointer<UrlCopy> self(this);
    put->setState(Q3NetworkOperation::StDone);
    // The file goes before anyone hears of the put: who closes after that finds all done.
    if (remove) {
        removeFile();
        emit owner->finished(remove);
    }
    if (self)
        emit owner->finished(put);
    if (self)
        upload->close();
    if (self)
        end();
}

void UrlCopy::removeFile()
{
    if (file.remove())
        remove->setState(Q3NetworkOperation::StDone);
    else
        remove->fail(Q3NetworkOperation::ErrRemove, tr("Could not remove file or directory\n%1").arg(path));
}

void UrlCopy::end()
{
    for (Q3NetworkOperation *operation : operations())
        QTimer::singleShot(Q3NetworkOperation::Afterlife, operation, &QObject::deleteLater);
    deleteLater();
}

void UrlCopy::tellProgress(qint64 count, Q3NetworkOperation *operation)
{
    int halvings = 0;
    while (size >> halvings > std::numeric_limits<int>::max())
        ++halvings;
    emit owner->dataTransferProgress(static_cast<int>(count >> halvings), static_cast<int>(size >> halvings),
                                     operation);
}

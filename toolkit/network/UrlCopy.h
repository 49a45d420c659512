#pragma once

#include "LocalFile.h"
#include "Q3NetworkOperation.h"
#include "Q3Url.h"

#include <QList>
#include <QObject>
#include <QString>

#include <optional>

class FtpUpload;
class Q3UrlOperator;

/// One copy of a Q3UrlOperator: its operations, one after the other. It deletes itself after the last one.
class UrlCopy : public QObject
{
    Q_OBJECT

public:
    /// Everything begins in the event loop.
    /// @param source  a local file
    /// @param target  the file's place on the server
    UrlCopy(const Q3Url &source, const QString &target, bool move, Q3UrlOperator *parent);
    ~UrlCopy() override;
    Q_DISABLE_COPY_MOVE(UrlCopy)

    [[nodiscard]] QList<Q3NetworkOperation *> operations() const;

private:
    void startGet();
    void getBlock();
    [[nodiscard]] std::optional<qint64> readBlock(qint64 atMost);
    void endGet();
    void failGet();
    void startPut();
    void endPut();
    void failPut(int code, const QString &text);
    void removeFile();
    void end();
    void makeUpload();
    void tellProgress(qint64 count, Q3NetworkOperation *operation);

    Q3UrlOperator *owner;
    QString path; ///< of the local file
    Q3Url target;
    LocalFile file;
    qint64 size = 0; ///< of the file when the operation under way began
    qint64 done = 0; ///< bytes of the get
    Q3NetworkOperation *get;
    Q3NetworkOperation *put;
    Q3NetworkOperation *remove = nullptr; ///< null if the file stays
    FtpUpload *upload = nullptr;
};

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>

/// What one side of a transfer does, and how it stands. The values are fixed.
class Q3NetworkOperation : public QObject
{
    Q_OBJECT

public:
    /// How long an operation can be looked at past its end.
    static constexpr std::chrono::seconds Afterlife{1};

    enum Operation : int {
        OpListChildren = 1,
        OpMkDir = 2,
        OpRemove = 4,
        OpRename = 8,
        OpGet = 32,
        OpPut = 64,
    };

    enum State : int {
        StWaiting = 0,
        StInProgress = 1,
        StDone = 2,
        StFailed = 3,
        StStopped = 4,
    };

    enum ConnectionState : int {
        ConHostFound = 0,
        ConConnected = 1,
        ConClosed = 2,
    };

    enum Error : int {
        NoError = 0,
        ErrValid = 1,
        ErrUnknownProtocol = 2,
        ErrUnsupported = 3,
        ErrParse = 4,
        ErrLoginIncorrect = 5,
        ErrHostNotFound = 6,
        ErrListChildren = 7,
        ErrMkDir = 8,
        ErrRemove = 9,
        ErrRename = 10,
        ErrGet = 11,
        ErrPut = 12,
        ErrFileNotExisting = 13,
        ErrPermissionDenied = 14,
    };

    /// @param args  what it works on, such as URL texts
    Q3NetworkOperation(Operation operation, QStringList args, QObject *parent);
    ~Q3NetworkOperation() override;
    Q_DISABLE_COPY_MOVE(Q3NetworkOperation)

    [[nodiscard]] Operation operation() const { return kind; }
    /// One of the arguments, empty where there is none.
    [[nodiscard]] QString arg(int index) const { return arguments.value(index); }
    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] int errorCode() const { return errorCode_; }
    /// Why it failed, for the user.
    [[nodiscard]] QString protocolDetail() const { return protocolDetail_; }

    void setState(State state) { state_ = state; }
    /// Makes it one that has failed.
    void fail(Error code, const QString &detail);

private:
    Operation kind;
    QStringList arguments;
    State state_ = StWaiting;
    Error errorCode_ = NoError;
    QString protocolDetail_;
};

#include "Q3NetworkOperation.h"

#include <utility>

Q3NetworkOperation::Q3NetworkOperation(Operation operation, QStringList args, QObject *parent) :
    QObject(parent),
    kind(operation),
    arguments(std::move(args))
{
}

Q3NetworkOperation::~Q3NetworkOperation() = default;

void Q3NetworkOperation::fail(Error code, const QString &detail)
{
    state_ = StFailed;
    errorCode_ = code;
    protocolDetail_ = detail;
}

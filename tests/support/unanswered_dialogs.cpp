// Linked into every test program that has a screen: a modal dialog that nobody answers fails its test and is closed,
// instead of holding the program until its time is up.

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QTest>
#include <QTimer>

namespace {

/// How long a dialog may wait for its test. A test may set another limit, in milliseconds.
int limit_ms()
{
    bool isSet = false;
    const int set = qEnvironmentVariableIntValue("IM_UNANSWERED_DIALOG_MS", &isSet);
    return isSet ? set : 20000;
}

class UnansweredDialogs : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *const dialog = qobject_cast<QDialog *>(watched);
        if (dialog == nullptr || !dialog->isModal())
            return false;
        if (event->type() == QEvent::Show)
            watch(dialog);
        else if (event->type() == QEvent::Hide)
            delete dialog->findChild<QTimer *>(timerName(), Qt::FindDirectChildrenOnly);
        return false;
    }

private:
    static QString timerName() { return QStringLiteral("unansweredDialog"); }

    static void watch(QDialog *dialog)
    {
        auto *const timer = new QTimer(dialog);
        timer->setObjectName(timerName());
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, dialog, [dialog] {
            const QString title = dialog->windowTitle();
            QTest::qFail(qPrintable(QStringLiteral("nobody answered the dialog \"%1\"").arg(title)), __FILE__,
                         __LINE__);
            dialog->reject();
        });
        timer->start(limit_ms());
    }
};

void watch_for_unanswered_dialogs()
{
    QCoreApplication::instance()->installEventFilter(new UnansweredDialogs(QCoreApplication::instance()));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch_for_unanswered_dialogs)

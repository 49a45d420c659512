#pragma once

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>

/// Works the next modal dialog that is no message box, and fails the test if none came.
class NextDialog
{
public:
    /// @param work  looks at the dialog, fills it in, and accepts or rejects it
    explicit NextDialog(std::function<void(QDialog &)> work) : m_work(std::move(work))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(10);
    }

    ~NextDialog()
    {
        if (!m_bCome)
            QTest::qFail("No dialog came.", __FILE__, __LINE__);
    }

    Q_DISABLE_COPY_MOVE(NextDialog)

private:
    void look()
    {
        auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || qobject_cast<QMessageBox *>(dialog))
            return;
        m_timer.stop();
        m_bCome = true;
        m_work(*dialog);
    }

    std::function<void(QDialog &)> m_work;
    QTimer m_timer;
    bool m_bCome = false;
};

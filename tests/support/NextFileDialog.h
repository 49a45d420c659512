#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <functional>

/// Works the next modal file dialog, and fails the test if none came.
class NextFileDialog
{
public:
    /// @param work  fills the dialog in and accepts or rejects it
    explicit NextFileDialog(std::function<void(QFileDialog &)> work) : m_work(std::move(work))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(10);
    }

    ~NextFileDialog()
    {
        if (!m_bCome)
            QTest::qFail("No file dialog came.", __FILE__, __LINE__);
    }

    Q_DISABLE_COPY_MOVE(NextFileDialog)

    [[nodiscard]] bool hasCome() const { return m_bCome; }

    /// Types a name and presses the button that accepts it.
    static void accept(QFileDialog &dialog, const QString &name)
    {
        dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(name);
        QMetaObject::invokeMethod(&dialog, "accept");
    }

private:
    void look()
    {
        auto *const dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        m_timer.stop();
        m_bCome = true;
        m_work(*dialog);
    }

    std::function<void(QFileDialog &)> m_work;
    QTimer m_timer;
    bool m_bCome = false;
};

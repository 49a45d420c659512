#pragma once

#include <QTest>
#include <QTimer>

#include <functional>

/// Does something once, from the event loop, as soon as a condition holds; fails the test if it never did.
class Once
{
public:
    Once(std::function<bool()> condition, std::function<void()> work) :
        m_condition(std::move(condition)),
        m_work(std::move(work))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(0);
    }

    ~Once()
    {
        if (m_timer.isActive())
            QTest::qFail("The moment never came.", __FILE__, __LINE__);
    }

    Q_DISABLE_COPY_MOVE(Once)

private:
    void look()
    {
        if (!m_condition())
            return;
        m_timer.stop();
        m_work();
    }

    std::function<bool()> m_condition;
    std::function<void()> m_work;
    QTimer m_timer;
};

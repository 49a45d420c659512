#include "StillPages.h"

#include <QTest>

#include <memory>

namespace {

/// Notes what it sees when it comes up.
class Page : public QWidget
{
public:
    using QWidget::QWidget;

    const QWidget *other = nullptr;
    bool otherWasUpdated = false;
    int paintings = 0;

protected:
    void showEvent(QShowEvent * /*event*/) override { otherWasUpdated = other && other->updatesEnabled(); }
    void paintEvent(QPaintEvent * /*event*/) override { ++paintings; }
};

} // namespace

class tst_StillPages : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tabs.reset(); }

    void pageThatComesUpIsPainted();
    void otherPagesAreLeftAlone();
    void pagesThatWereStillStayStill();
    void tabsMayGoMeanwhile();

private:
    [[nodiscard]] QWidget *stack() const { return second->parentWidget(); }

    std::unique_ptr<QTabWidget> tabs;
    Page *first = nullptr;
    Page *second = nullptr;
};

void tst_StillPages::init()
{
    tabs = std::make_unique<QTabWidget>();
    first = new Page(tabs.get());
    second = new Page(tabs.get());
    second->other = first;
    tabs->addTab(first, QStringLiteral("first"));
    tabs->addTab(second, QStringLiteral("second"));
    tabs->show();
    QVERIFY(QTest::qWaitForWindowExposed(tabs.get()));
    QTRY_VERIFY(first->paintings > 0);
}

void tst_StillPages::pageThatComesUpIsPainted()
{
    {
        const StillPages still(tabs.get());
        tabs->setCurrentIndex(1);
        QVERIFY(!stack()->updatesEnabled());
    }

    QVERIFY(stack()->updatesEnabled());
    QTRY_VERIFY(second->paintings > 0);
}

void tst_StillPages::otherPagesAreLeftAlone()
{
    const StillPages still(tabs.get());

    tabs->setCurrentIndex(1);

    QVERIFY(second->otherWasUpdated);
}

void tst_StillPages::pagesThatWereStillStayStill()
{
    tabs->setUpdatesEnabled(false);
    {
        const StillPages still(tabs.get());
        tabs->setCurrentIndex(1);
    }

    QVERIFY(!stack()->updatesEnabled());
}

void tst_StillPages::tabsMayGoMeanwhile()
{
    const StillPages still(tabs.get());

    tabs.reset();

    QVERIFY(!tabs);
}

QTEST_MAIN(tst_StillPages)

#include "tst_StillPages.moc"

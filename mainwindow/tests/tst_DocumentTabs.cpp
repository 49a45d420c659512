#include "DocumentTabs.h"

#include <QProxyStyle>
#include <QStyleFactory>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Counts how often the size of a tab is asked for.
class CountingStyle : public QProxyStyle
{
public:
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override
    {
        count += type == CT_TabBarTab ? 1 : 0;
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }

    mutable int count = 0;
};

QList<QRect> places_of(const QTabWidget &tabs)
{
    QList<QRect> places{tabs.tabBar()->geometry()};
    for (int i = 0; i < tabs.count(); ++i)
        places.append(tabs.tabBar()->tabRect(i));
    return places;
}

} // namespace

class tst_DocumentTabs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tabsStandWhereThoseOfAnOrdinaryBarStand();
    void tabsOfAStyleSheetStandWhereThoseOfAnOrdinaryBarStand();
    void tabsFollowFontStyleAndDirection();
    void aNewTabAsksForAsFewSizesAmongManyAsAmongSome();

private:
    /// Does the same to both.
    template <typename Step> void inBoth(const Step &step)
    {
        step(*tabs);
        step(*ordinary);
    }
    void addTabs(int count);

    std::unique_ptr<DocumentTabs> tabs;
    std::unique_ptr<QTabWidget> ordinary;
};

void tst_DocumentTabs::init()
{
    tabs = std::make_unique<DocumentTabs>();
    ordinary = std::make_unique<QTabWidget>();
    inBoth([](QTabWidget &widget) {
        widget.resize(900, 300);
        widget.show();
    });
    QVERIFY(QTest::qWaitForWindowExposed(tabs.get()));
}

void tst_DocumentTabs::cleanup()
{
    tabs.reset();
    ordinary.reset();
    QVERIFY(qApp->styleSheet().isEmpty());
}

void tst_DocumentTabs::addTabs(int count)
{
    const QStringList texts{
        u"a"_s, u"a"_s, u"page-0001.tif"_s, u"..."_s, u"*invoice of a very long name indeed.png"_s, u"&b"_s, u"a..."_s};
    for (int i = 0; i < count; ++i)
        inBoth([&](QTabWidget &widget) { widget.addTab(new QWidget, texts.at(i % texts.size())); });
}

void tst_DocumentTabs::tabsStandWhereThoseOfAnOrdinaryBarStand()
{
    QCOMPARE(tabs->tabBar()->objectName(), ordinary->tabBar()->objectName());
    QCOMPARE(tabs->tabBar()->drawBase(), ordinary->tabBar()->drawBase());
    for (int count = 0; count < 30; ++count) {
        addTabs(1);
        QCOMPARE(places_of(*tabs), places_of(*ordinary));
    }
    for (const int current : {0, 3, 29, 15}) {
        inBoth([current](QTabWidget &widget) { widget.setCurrentIndex(current); });
        QCOMPARE(places_of(*tabs), places_of(*ordinary));
    }
    for (const int index : {2, 14, 15, 20}) {
        inBoth([index](QTabWidget &widget) { widget.setTabText(index, u"another name"_s); });
        QCOMPARE(places_of(*tabs), places_of(*ordinary));
    }
    while (ordinary->count() > 0) {
        inBoth([](QTabWidget &widget) { widget.removeTab(widget.count() / 2); });
        QCOMPARE(places_of(*tabs), places_of(*ordinary));
    }
}

void tst_DocumentTabs::tabsOfAStyleSheetStandWhereThoseOfAnOrdinaryBarStand()
{
    const QString sheet =
        u"QTabBar::tab { padding: 3px } QTabBar::tab:selected { padding: 9px }"
        "QTabBar::tab:first { margin-left: 11px } QTabBar::tab:last { margin-right: 13px }"
        "QTabBar::tab:next-selected { padding: 5px } QTabBar::tab:previous-selected { padding: 7px }"_s;
    addTabs(20);
    inBoth([&](QTabWidget &widget) { widget.setStyleSheet(sheet); });
    for (const int current : {0, 19, 7}) {
        inBoth([current](QTabWidget &widget) { widget.setCurrentIndex(current); });
        addTabs(3);
        QCOMPARE(places_of(*tabs), places_of(*ordinary));
    }
}

void tst_DocumentTabs::tabsFollowFontStyleAndDirection()
{
    addTabs(20);
    inBoth([](QTabWidget &widget) {
        QFont font = widget.font();
        font.setPointSize(2 * font.pointSize());
        widget.setFont(font);
    });
    QCOMPARE(places_of(*tabs), places_of(*ordinary));
    inBoth([](QTabWidget &widget) { widget.setLayoutDirection(Qt::RightToLeft); });
    QCOMPARE(places_of(*tabs), places_of(*ordinary));
    const std::unique_ptr<QStyle> windows(QStyleFactory::create(u"Windows"_s));
    inBoth([&](QTabWidget &widget) { widget.tabBar()->setStyle(windows.get()); });
    QCOMPARE(places_of(*tabs), places_of(*ordinary));
    cleanup();
}

void tst_DocumentTabs::aNewTabAsksForAsFewSizesAmongManyAsAmongSome()
{
    const auto style = std::make_unique<CountingStyle>();
    inBoth([&](QTabWidget &widget) { widget.tabBar()->setStyle(style.get()); });
    const auto asked = [&](QTabWidget &widget) {
        for (int i = 0; i < 3; ++i) { // what stood beside the front tab has become like others
            style->count = 0;
            widget.setCurrentIndex(widget.addTab(new QWidget, u"page-0001.tif"_s));
        }
        return style->count;
    };
    addTabs(20);
    const int amongSome = asked(*tabs);
    addTabs(180);

    QCOMPARE(asked(*tabs), amongSome);
    QVERIFY(asked(*ordinary) >= 200);
    cleanup();
}

QTEST_MAIN(tst_DocumentTabs)
#include "tst_DocumentTabs.moc"

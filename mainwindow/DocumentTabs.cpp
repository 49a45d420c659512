#include "DocumentTabs.h"

#include <QEvent>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

DocumentTabBar::DocumentTabBar(QWidget *parent) : QTabBar(parent)
{
    // As the bar that a tab widget makes for itself.
    setObjectName(u"qt_tabwidget_tabbar"_s);
    setDrawBase(false);
}

/// Styles may give a tab at an end, the front one and those beside it sizes of their own. The last tab counts as such
/// until a new one has been laid out.
bool DocumentTabBar::looksLikeOthers(int index) const
{
    return index > 0 && index < count() - 2 && qAbs(index - currentIndex()) > 1 && tabIcon(index).isNull();
}

/// The size that @p sizes has for the text of a tab, else what @p ask tells, which is kept.
template <typename Ask> QSize DocumentTabBar::remembered(Sizes &sizes, int index, const Ask &ask) const
{
    if (!looksLikeOthers(index))
        return ask();
    const QString text = tabText(index);
    const auto known = sizes.constFind(text);
    if (known != sizes.cend())
        return *known;
    if (sizes.size() > qsizetype{2} * count()) // most are of tabs that are gone
        sizes.clear();
    return *sizes.insert(text, ask());
}

QSize DocumentTabBar::tabSizeHint(int index) const
{
    const auto ask = [this, index] { return QTabBar::tabSizeHint(index); };
    // While the least size is being asked for, another text is in place.
    return m_bAskingForLeast ? ask() : remembered(m_sizes, index, ask);
}

QSize DocumentTabBar::minimumTabSizeHint(int index) const
{
    const QScopedValueRollback asking(m_bAskingForLeast, true);
    return remembered(m_leastSizes, index, [this, index] { return QTabBar::minimumTabSizeHint(index); });
}

bool DocumentTabBar::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ApplicationFontChange:
    case QEvent::FontChange:
    case QEvent::LanguageChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::Polish:
    case QEvent::ScreenChangeInternal:
    case QEvent::StyleChange:
        m_sizes.clear();
        m_leastSizes.clear();
        break;
    default:
        break;
    }
    return QTabBar::event(event);
}

DocumentTabs::DocumentTabs(QWidget *parent) : QTabWidget(parent)
{
    setTabBar(new DocumentTabBar(this));
}

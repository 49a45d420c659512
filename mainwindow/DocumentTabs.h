#pragma once

#include <QHash>
#include <QTabBar>
#include <QTabWidget>

/// A tab bar of many tabs: it remembers how large a tab is by its text. Each new tab has the bar ask all others for
/// their sizes twice. What else makes tabs larger (buttons in them, another shape or way of eliding) is to be set before
/// the first tab.
class DocumentTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit DocumentTabBar(QWidget *parent = nullptr);

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
    bool event(QEvent *event) override;

private:
    using Sizes = QHash<QString, QSize>;

    [[nodiscard]] bool looksLikeOthers(int index) const;
    template <typename Ask> [[nodiscard]] QSize remembered(Sizes &sizes, int index, const Ask &ask) const;

    mutable Sizes m_sizes; ///< by text, of tabs that look like others
    mutable Sizes m_leastSizes;
    mutable bool m_bAskingForLeast = false;
};

/// The tabs of the main window. Ownership: as QTabWidget.
class DocumentTabs : public QTabWidget
{
    Q_OBJECT

public:
    explicit DocumentTabs(QWidget *parent = nullptr);
};

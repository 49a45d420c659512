#include "HelpWindow.h"

#include "FindBar.h"
#include "HelpBrowser.h"
#include "viewer_options.h"

#include <QDesktopServices>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int LeastTextSteps = -4;
constexpr int MostTextSteps = 16;
constexpr QSize DefaultSize(840, 600);
constexpr int DefaultContentsWidth = 230;
constexpr qreal PageMargin = 12;

} // namespace

HelpWindow::HelpWindow(const ViewerOptions &options, const QString &locale) :
    m_pages(options.directory, options.overview, locale),
    m_browser(new HelpBrowser(m_pages)),
    m_contents(new QListWidget),
    m_splitter(new QSplitter(this))
{
    m_browser->setObjectName("help_page"_L1);
    m_browser->setAccessibleName(tr("Help page"));
    m_browser->document()->setDocumentMargin(PageMargin);
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_browser);
    m_findBar = new FindBar(m_browser, page);
    m_findBar->hide();
    column->addWidget(m_findBar);

    makeContents();
    m_splitter->addWidget(m_contents);
    m_splitter->addWidget(page);
    m_splitter->setStretchFactor(1, 1);
    setCentralWidget(m_splitter);

    makeActions();
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::showTitle);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::markInContents);
    connect(m_browser, &HelpBrowser::desktopAsked, this, [](const QUrl &url) { QDesktopServices::openUrl(url); });
    connect(m_browser, &HelpBrowser::linkRefused, this, [this](const QUrl &url) {
        statusBar()->showMessage(tr("The link to %1 leads out of the help and is not followed.").arg(url.toString()));
    });

    restoreLayout();
    m_browser->setSource(m_pages.address(options.topic), QTextDocument::HtmlResource);
    m_browser->setFocus(Qt::OtherFocusReason);
}

void HelpWindow::makeContents()
{
    m_contents->setObjectName("help_contents"_L1);
    m_contents->setAccessibleName(tr("Contents"));
    for (const HelpPages::Entry &entry : m_pages.contentsList()) {
        auto *item = new QListWidgetItem(entry.title, m_contents);
        item->setData(Qt::UserRole, entry.address);
    }
    connect(m_contents, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem *item) {
        if (item)
            m_browser->follow(item->data(Qt::UserRole).toUrl());
    });
}

void HelpWindow::makeActions()
{
    QToolBar *const bar = addToolBar(tr("Commands"));
    bar->setObjectName("help_commands"_L1);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [this, bar](const QString &text, const QList<QKeySequence> &keys, auto &&slot) {
        QAction *const action = bar->addAction(text);
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    const auto keysOf = [](QKeySequence::StandardKey key) { return QKeySequence::keyBindings(key); };

    QAction *const back = add(tr("&Back"), keysOf(QKeySequence::Back), [this] { m_browser->backward(); });
    QAction *const forward = add(tr("F&orward"), keysOf(QKeySequence::Forward), [this] { m_browser->forward(); });
    add(tr("&Home"), {QKeySequence(Qt::ALT | Qt::Key_Home)}, [this] { m_browser->follow(m_pages.address({})); });
    back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack, nullptr, this));
    forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward, nullptr, this));
    for (QAction *const action : {back, forward})
        action->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    bar->addSeparator();
    add(tr("F&ind"), keysOf(QKeySequence::Find), [this] { m_findBar->open(); });
    add(tr("&Larger"), {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)}, [this] { changeTextSize(1); });
    add(tr("&Smaller"), keysOf(QKeySequence::ZoomOut), [this] { changeTextSize(-1); });
    bar->addSeparator();
    add(tr("Prin&t"), keysOf(QKeySequence::Print), [this] { printPage(); });
    add(tr("&Close"), {QKeySequence(Qt::CTRL | Qt::Key_W)}, [this] { close(); });

    const auto addKey = [this](const QKeySequence &key, auto *receiver, auto slot) {
        auto *action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, receiver, slot);
        addAction(action);
    };
    addKey(Qt::Key_F3, m_findBar, &FindBar::findNext);
    addKey(Qt::SHIFT | Qt::Key_F3, m_findBar, &FindBar::findPrevious);
    addKey(Qt::Key_Escape, this, &HelpWindow::leave);
}

void HelpWindow::restoreLayout()
{
    const QSettings settings;
    resize(DefaultSize);
    (void)restoreGeometry(settings.value("geometry"_L1).toByteArray()); // what cannot be read leaves the default
    m_splitter->setSizes({DefaultContentsWidth, DefaultSize.width() - DefaultContentsWidth});
    (void)m_splitter->restoreState(settings.value("contents"_L1).toByteArray());
    changeTextSize(settings.value("text_size"_L1).toInt());
}

void HelpWindow::storeLayout() const
{
    QSettings settings;
    settings.setValue("geometry"_L1, saveGeometry());
    settings.setValue("contents"_L1, m_splitter->saveState());
    settings.setValue("text_size"_L1, m_textSteps);
}

void HelpWindow::closeEvent(QCloseEvent *event)
{
    storeLayout();
    QMainWindow::closeEvent(event);
}

void HelpWindow::leave()
{
    if (m_findBar->isVisible())
        m_findBar->leave();
    else
        close();
}

void HelpWindow::changeTextSize(int steps)
{
    const int wanted = std::clamp(m_textSteps + steps, LeastTextSteps, MostTextSteps);
    m_browser->zoomIn(wanted - m_textSteps);
    m_textSteps = wanted;
}

void HelpWindow::printPage()
{
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        m_browser->print(&printer);
}

void HelpWindow::showTitle()
{
    statusBar()->clearMessage();
    const QString title = m_browser->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("%1 - Help").arg(title));
}

void HelpWindow::markInContents(const QUrl &address)
{
    const QSignalBlocker quiet(m_contents); // the page is shown already
    const QUrl shown = address.adjusted(QUrl::RemoveFragment);
    m_contents->setCurrentItem(nullptr);
    for (int row = 0; row < m_contents->count(); ++row) {
        if (m_contents->item(row)->data(Qt::UserRole).toUrl() == shown)
            m_contents->setCurrentRow(row);
    }
}

// A small window with one of each control that the driver must be able to find and to work.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Tells in the status bar where it was pressed, and where a drag ended.
class PressTarget : public QWidget
{
public:
    explicit PressTarget(QStatusBar *statusBar) : m_statusBar(statusBar)
    {
        setAccessibleName(u"target"_s);
        setAutoFillBackground(true);
        setPalette(QPalette(QColor(10, 200, 30)));
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        m_pressed = event->pos();
        m_statusBar->showMessage(u"pressed at %1,%2"_s.arg(event->pos().x()).arg(event->pos().y()));
    }

    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->pos() != m_pressed)
            m_statusBar->showMessage(u"released at %1,%2"_s.arg(event->pos().x()).arg(event->pos().y()));
    }

private:
    QStatusBar *m_statusBar;
    QPoint m_pressed;
};

void add_menu(QMainWindow &window)
{
    QMenu *const menu = window.menuBar()->addMenu(u"&Things"_s);
    QAction *const ask = menu->addAction(u"&Ask..."_s);
    ask->setShortcut(QKeySequence(u"Ctrl+K"_s));
    menu->addSeparator();
    QAction *const mark = menu->addAction(u"&Mark"_s);
    mark->setCheckable(true);
    menu->addAction(u"Never"_s)->setEnabled(false);

    QObject::connect(ask, &QAction::triggered, &window, [&window] {
        const auto answer =
            QMessageBox::question(&window, u"Sample"_s, u"Line one\nLine two?"_s,
                                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No);
        window.statusBar()->showMessage(answer == QMessageBox::Yes ? u"yes"_s : u"not yes"_s);
    });

    QToolBar *const bar = window.addToolBar(u"Sample bar"_s);
    bar->addAction(ask);
    bar->addAction(mark);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(u"Sample window"_s);
    add_menu(window);
    auto *const tabs = new QTabWidget(&window);
    tabs->addTab(new PressTarget(window.statusBar()), u"first"_s);
    tabs->addTab(new QLabel(u"second page"_s), u"second"_s);
    window.setCentralWidget(tabs);
    window.resize(400, 300);
    window.show();
    std::puts("sample is up");
    std::fputs("sample complains\n", stderr);
    return QApplication::exec();
}

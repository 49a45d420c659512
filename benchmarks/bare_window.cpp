// The least that a window of this toolkit costs: a menu bar, a tool bar, a status bar, and one tab that paints a file.
//
//   bare_window [FILE]

#include <QApplication>
#include <QImageReader>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class Picture : public QWidget
{
public:
    explicit Picture(QPixmap shown) : pixmap(std::move(shown)) { }

protected:
    void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).drawPixmap(0, 0, pixmap); }

private:
    QPixmap pixmap;
};

void add_commands(QMainWindow &window)
{
    for (const QString &title : {u"&File"_s, u"&Edit"_s, u"&View"_s, u"&Zoom"_s, u"&Image"_s}) {
        QMenu *const menu = window.menuBar()->addMenu(title);
        for (int i = 1; i <= 8; ++i)
            menu->addAction(u"%1 %2"_s.arg(title).arg(i));
    }
    QToolBar *const bar = window.addToolBar(u"Tools"_s);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    QPixmap icon(24, 24); // no file: the first one to be read would bring in every image plug-in
    icon.fill(Qt::darkBlue);
    for (int i = 1; i <= 12; ++i)
        bar->addAction(icon, u"Tool %1"_s.arg(i));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QImageReader::setAllocationLimit(0);
    const QString path = QApplication::arguments().value(1);

    QMainWindow window;
    add_commands(window);
    window.statusBar()->showMessage(u"Ready"_s);
    auto *const tabs = new QTabWidget(&window);
    window.setCentralWidget(tabs);
    const QPixmap pixmap = path.isEmpty() ? QPixmap() : QPixmap::fromImage(QImageReader(path).read());
    tabs->addTab(new Picture(pixmap), u"page"_s);
    window.resize(335, 564);
    window.show();
    return QApplication::exec();
}

// The least that a window with a help page costs: the toolkit's browser, and nothing around it.
//
//   bare_browser PAGE

#include <QApplication>
#include <QTextBrowser>
#include <QUrl>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QTextBrowser browser;
    browser.setSource(QUrl::fromLocalFile(QApplication::arguments().value(1)));
    browser.resize(840, 600); // as the viewer
    browser.show();
    return QApplication::exec();
}

#include "QuickIconStyle.h"

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMenuBar>
#include <QScopeGuard>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

bool has_image_plugins()
{
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("/imageformats/");
}

/// A window too narrow for its menus and its tools.
class NarrowWindow : public QMainWindow
{
    Q_OBJECT

public:
    NarrowWindow()
    {
        auto *tools = addToolBar(u"Tools"_s);
        for (int number = 0; number < 40; ++number) {
            menuBar()->addMenu(QString::number(number));
            tools->addAction(QString::number(number));
        }
        resize(200, 100);
    }

    [[nodiscard]] QList<QImage> extensionButtons() const
    {
        QList<QImage> images;
        for (const char *name : {"qt_menubar_ext_button", "qt_toolbar_ext_button"}) {
            auto *button = findChild<QToolButton *>(QLatin1String(name));
            if (button && button->isVisible())
                images.append(button->grab().toImage());
        }
        return images;
    }
};

} // namespace

class tst_QuickIconStyle : public QObject
{
    Q_OBJECT

private slots:
    void bothBarsShowTheDesktopsPicturesWithoutPlugins();
    void anySizeAndStateIsThatOfTheDesktop();
    void otherPicturesAreThoseOfTheDesktop();
};

void tst_QuickIconStyle::bothBarsShowTheDesktopsPicturesWithoutPlugins()
{
    QApplication::setStyle(new QuickIconStyle);
    NarrowWindow window;
    window.show();
    QTRY_COMPARE(window.extensionButtons().size(), 2);
    const QList<QImage> quick = window.extensionButtons();
    QVERIFY(!has_image_plugins());

    QApplication::setStyle(u"fusion"_s);
    NarrowWindow plain;
    plain.show();
    QTRY_COMPARE(plain.extensionButtons().size(), 2);

    QCOMPARE(quick, plain.extensionButtons());
    QVERIFY(has_image_plugins()); // the toolkit's way, or this test would show nothing
}

void tst_QuickIconStyle::anySizeAndStateIsThatOfTheDesktop()
{
    const QuickIconStyle style;
    const QIcon quick = style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr);
    const QIcon plain = style.baseStyle()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);

    QCOMPARE(quick.availableSizes(), plain.availableSizes());
    for (const int size : {4, 8, 10, 12, 16, 20, 24, 32, 48, 64}) {
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected}) {
            for (const double ratio : {1.0, 1.5, 2.0})
                QCOMPARE(quick.pixmap({size, size}, ratio, mode).toImage(),
                         plain.pixmap({size, size}, ratio, mode).toImage());
        }
    }
}

void tst_QuickIconStyle::otherPicturesAreThoseOfTheDesktop()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    const auto ended = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    const QuickIconStyle style;
    for (const QStyle::StandardPixmap name : {QStyle::SP_MessageBoxWarning, QStyle::SP_ToolBarHorizontalExtensionButton,
                                              QStyle::SP_ToolBarVerticalExtensionButton}) {
        const QPixmap expected = style.baseStyle()->standardIcon(name).pixmap(16);
        QVERIFY(!expected.isNull());
        QCOMPARE(style.standardIcon(name, nullptr, nullptr).pixmap(16).toImage(), expected.toImage());
    }
}

QTEST_MAIN(tst_QuickIconStyle)
#include "tst_QuickIconStyle.moc"

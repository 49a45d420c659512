#include "files.h"
#include "NextDialog.h"
#include "WindowFixture.h"

#include "AppContext.h"
#include "path_strings.h"

#include <QApplication>
#include <QDir>
#include <QHash>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The properties dialog as it was while it was open.
struct Properties
{
    QString title;
    QHash<QString, QString> values; ///< by the names of their labels
    QSize smallest;
    QSize natural;
    QSize largest;
    bool modal = false;
};

/// Opens the dialog by its command, reads it and closes it.
Properties read_properties(const WindowFixture &fixture)
{
    Properties properties;
    const NextDialog dialog([&properties](QDialog &shown) {
        properties = {.title = shown.windowTitle(),
                      .values = {},
                      .smallest = shown.minimumSize(),
                      .natural = shown.sizeHint(),
                      .largest = shown.maximumSize(),
                      .modal = shown.isModal()};
        for (const QLabel *const label : shown.findChildren<QLabel *>())
            properties.values.insert(label->objectName(), label->text());
        shown.accept();
    });
    fixture.action(u"image_properties"_s)->trigger();
    return properties;
}

} // namespace

/// What the window tells about the page and about itself.
class tst_ImageManager_information : public QObject
{
    Q_OBJECT

private slots:
    void propertiesTellOfThePageOnShow()
    {
        WindowFixture fixture(u"a.png"_s, QSize(30, 20));
        QVERIFY(fixture.open(u"b.png"_s, QSize(65, 48)));

        const Properties properties = read_properties(fixture);

        QCOMPARE(properties.title, u"Image Properties"_s);
        QVERIFY(properties.modal);
        QCOMPARE(properties.values.value(u"WidthValue"_s), u"65"_s);
        QCOMPARE(properties.values.value(u"HeightValue"_s), u"48"_s);
        QCOMPARE(properties.values.value(u"BitDepthValue"_s), u"32"_s);
        QCOMPARE(properties.values.value(u"BytesPerLineValue"_s), u"260"_s);
        QCOMPARE(properties.values.value(u"BytesValue"_s), u"12480"_s); // 260 a line
        QCOMPARE(properties.values.value(u"ZoomValue"_s), u"1"_s);
    }

    void propertiesTellTheZoom_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("factor");

        QTest::newRow("8:1") << 0 << u"8"_s;
        QTest::newRow("1:2") << 4 << u"0.5"_s;
        QTest::newRow("1:16") << 7 << u"0.0625"_s;
    }

    void propertiesTellTheZoom()
    {
        QFETCH(const int, index);
        QFETCH(const QString, factor);
        WindowFixture fixture(u"a.png"_s);
        fixture.menu(u"&Zoom"_s)->actions().at(index)->trigger();

        QCOMPARE(read_properties(fixture).values.value(u"ZoomValue"_s), factor);
    }

    void propertiesHaveAFixedSize()
    {
        WindowFixture fixture(u"a.png"_s);

        const Properties properties = read_properties(fixture);

        QCOMPARE(properties.smallest, properties.natural);
        QCOMPARE(properties.largest, properties.natural);
    }

    void propertiesChangeNothing()
    {
        WindowFixture fixture(u"a.png"_s);

        (void)read_properties(fixture);

        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QVERIFY(fixture.home.filesIn(u"tmp"_s).isEmpty());
    }

    void withoutATabThereAreNoProperties()
    {
        WindowFixture fixture;

        fixture.window.image_properties();

        QVERIFY(!QApplication::activeModalWidget());
    }

    void helpShowsThePageOfTheEditor()
    {
        WindowFixture fixture;
        const QDir package(fixture.home.path());
        write_program(package.filePath(u"bin/pagr"_s),
                      "#!/bin/sh\ncd \"${0%/*}\" && echo \"$*\" >new && mv new call\n");
        copy_str(actx.package_dir, qPrintable(package.path()), sizeof(actx.package_dir));
        copy_str(actx.share_dir, qPrintable(package.filePath(u"share"_s)), sizeof(actx.share_dir));

        QVERIFY(QMetaObject::invokeMethod(&fixture.window, "help_context"));

        QTRY_VERIFY(package.exists(u"bin/call"_s));
        QCOMPARE(
            QString::fromUtf8(file_bytes(package.filePath(u"bin/call"_s))),
            u"-s %1/share/help -u ImageEditor.htm -g DriverPackageOverview.htm -n 0 -h 1 -f 0\n"_s.arg(package.path()));
    }
};

QTEST_MAIN(tst_ImageManager_information)
#include "tst_ImageManager_information.moc"

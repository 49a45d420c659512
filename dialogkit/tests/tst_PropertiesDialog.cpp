#include "pictures.h"
#include "PropertiesDialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpacerItem>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int Rows = 8;

/// A text of the form's table; column 0 holds the captions, column 1 the values.
QLabel *cell(const PropertiesDialog &dialog, int row, int column)
{
    const auto *const grid = dialog.findChild<QGridLayout *>(u"gridLayout1"_s);
    return qobject_cast<QLabel *>(grid->itemAtPosition(row, column)->widget());
}

QStringList column(const PropertiesDialog &dialog, int column, QString (*property)(const QLabel *))
{
    QStringList values;
    for (int row = 0; row < Rows; ++row)
        values.append(property(cell(dialog, row, column)));
    return values;
}

QString text_of(const QLabel *label)
{
    return label->text();
}

QString name_of(const QLabel *label)
{
    return label->objectName();
}

QString value(const PropertiesDialog &dialog, const QString &name)
{
    return dialog.findChild<QLabel *>(name)->text();
}

} // namespace

class tst_PropertiesDialog : public QObject
{
    Q_OBJECT

private slots:
    void hasItsNameTitleAndSize()
    {
        const PropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr);

        QCOMPARE(dialog.objectName(), u"PropertiesDialog"_s);
        QCOMPARE(dialog.windowTitle(), u"Image Properties"_s);
        QCOMPARE(dialog.size(), QSize(212, 292));
    }

    void boxSpansBothColumnsAboveTheButton()
    {
        const PropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr);
        const auto *const grid = qobject_cast<QGridLayout *>(dialog.layout());
        auto *const box = dialog.findChild<QGroupBox *>(u"groupBox"_s);

        QCOMPARE(grid->objectName(), u"gridLayout"_s);
        QCOMPARE(box->title(), u"Properties"_s);
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), box);
        QCOMPARE(grid->itemAtPosition(0, 1)->widget(), box);
        QCOMPARE(grid->itemAtPosition(1, 0)->spacerItem()->sizeHint(), QSize(200, 20));
        QCOMPARE(grid->itemAtPosition(1, 1)->widget(), dialog.findChild<QPushButton *>(u"buttonOk"_s));
    }

    void captionsStandInReadingOrder()
    {
        const PropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr);

        QCOMPARE(column(dialog, 0, text_of),
                 (QStringList{u"Width [pixels]"_s, u"Height [pixels]"_s, u"Bit Depth"_s, u"Colors In Pallette"_s,
                              u"GrayScale"_s, u"Bytes"_s, u"Bytes per line"_s, u"Zoom Coefficient"_s}));
        QCOMPARE(column(dialog, 0, name_of),
                 (QStringList{u"WidthTextLabel"_s, u"HeightTextLabel"_s, u"BitDepthTextLabel"_s,
                              u"ColorsInPalletteTextLabel"_s, u"GrayScaleTextLabel"_s, u"BytesTextLabel"_s,
                              u"BytesPerLineTextLabel"_s, u"ZoomText"_s}));
    }

    void valuesStandBesideTheirCaptionsInSunkenFrames()
    {
        const PropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr);

        QCOMPARE(column(dialog, 1, name_of),
                 (QStringList{u"WidthValue"_s, u"HeightValue"_s, u"BitDepthValue"_s, u"ColorsInPalleteValue"_s,
                              u"GrayScaleValue"_s, u"BytesValue"_s, u"BytesPerLineValue"_s, u"ZoomValue"_s}));
        for (int row = 0; row < Rows; ++row) {
            const QLabel *const label = cell(dialog, row, 1);
            QCOMPARE(label->frameShape(), QFrame::Panel);
            QCOMPARE(label->frameShadow(), QFrame::Sunken);
            QVERIFY(!label->wordWrap());
            QVERIFY(!cell(dialog, row, 0)->wordWrap());
            QCOMPARE(cell(dialog, row, 0)->buddy(), label); // what a screen reader goes by
        }
    }

    void valuesTellOfThePage_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<QStringList>("values");

        // A line is filled up to 4 bytes. Up to depth 8 a colour counts 4 bytes and the rest 32.
        QImage grey(5, 3, QImage::Format_Indexed8);
        QList<QRgb> greys;
        for (int level = 0; level < 256; ++level)
            greys.append(qRgb(level, level, level));
        grey.setColorTable(greys);
        grey.fill(7);
        QTest::newRow("32 bits, coloured, no share for a palette")
            << solid_page({5, 3}, 0xff102030)
            << QStringList{u"5"_s, u"3"_s, u"32"_s, u"0"_s, u"No"_s, u"60"_s, u"20"_s, u"1"_s};
        QTest::newRow("32 bits, all grey")
            << solid_page({5, 3}, 0xff404040)
            << QStringList{u"5"_s, u"3"_s, u"32"_s, u"0"_s, u"Yes"_s, u"60"_s, u"20"_s, u"1"_s};
        QTest::newRow("8 bits, 256 greys: 24 + 1056 bytes")
            << grey << QStringList{u"5"_s, u"3"_s, u"8"_s, u"256"_s, u"Yes"_s, u"1080"_s, u"8"_s, u"1"_s};
        QTest::newRow("8 bits, 256 colours: 24 + 1056 bytes")
            << patterned_page({5, 3}, 8)
            << QStringList{u"5"_s, u"3"_s, u"8"_s, u"256"_s, u"No"_s, u"1080"_s, u"8"_s, u"1"_s};
        QTest::newRow("1 bit, 2 colours: 24 + 40 bytes")
            << patterned_page({33, 3}, 1)
            << QStringList{u"33"_s, u"3"_s, u"1"_s, u"2"_s, u"No"_s, u"64"_s, u"8"_s, u"1"_s};
        QTest::newRow("no page") << QImage()
                                 << QStringList{u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"No"_s, u"32"_s, u"0"_s, u"1"_s};
    }

    void valuesTellOfThePage()
    {
        QFETCH(const QImage, image);
        const PropertiesDialog dialog(image, 1.0, nullptr);

        QTEST(column(dialog, 1, text_of), "values");
    }

    void zoomStandsAsAFactor_data()
    {
        QTest::addColumn<double>("zoom");
        QTest::addColumn<QString>("text");

        QTest::newRow("8:1") << 8.0 << u"8"_s;
        QTest::newRow("1:2") << 0.5 << u"0.5"_s;
        QTest::newRow("1:16") << 0.0625 << u"0.0625"_s;
    }

    void zoomStandsAsAFactor()
    {
        QFETCH(const double, zoom);
        const PropertiesDialog dialog(solid_page({4, 3}, 0xff102030), zoom, nullptr);

        QTEST(value(dialog, u"ZoomValue"_s), "text");
    }

    void okIsTheDefaultAndCloses_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");

        QTest::newRow("Return") << int{Qt::Key_Return} << Qt::KeyboardModifiers(Qt::NoModifier);
        QTest::newRow("Alt+O") << int{Qt::Key_O} << Qt::KeyboardModifiers(Qt::AltModifier);
    }

    void okIsTheDefaultAndCloses()
    {
        QFETCH(const int, key);
        QFETCH(const Qt::KeyboardModifiers, modifiers);
        PropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr);
        const auto *const button = dialog.findChild<QPushButton *>(u"buttonOk"_s);
        QCOMPARE(button->text(), u"&OK"_s);
        QCOMPARE(button->shortcut(), QKeySequence(u"Alt+O"_s));
        QVERIFY(button->isDefault());
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));

        QTest::keyClick(&dialog, static_cast<Qt::Key>(key), modifiers);

        QTRY_VERIFY(!dialog.isVisible()); // a shortcut shows the button pressed for a moment
        QCOMPARE(dialog.result(), int{QDialog::Accepted});
    }
};

QTEST_MAIN(tst_PropertiesDialog)
#include "tst_PropertiesDialog.moc"

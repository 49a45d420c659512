#include "ImagePropertiesDialog.h"
#include "pictures.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int Rows = 8;

/// What the dialog shows, a line "caption: value" for each row.
QStringList lines(const QDialog &dialog)
{
    const auto *const grid = qobject_cast<QGridLayout *>(dialog.layout());
    const auto text = [grid](int row, int column) {
        return qobject_cast<QLabel *>(grid->itemAtPosition(row, column)->widget())->text();
    };
    QStringList found;
    for (int row = 0; row < Rows; ++row)
        found.append(u"%1: %2"_s.arg(text(row, 0), text(row, 1)));
    return found;
}

} // namespace

class tst_ImagePropertiesDialog : public QObject
{
    Q_OBJECT

private slots:
    void hasItsNameTitleAndModality()
    {
        const ImagePropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr, "a_name", true);

        QCOMPARE(dialog.objectName(), u"a_name"_s);
        QCOMPARE(dialog.windowTitle(), u"Image Properties"_s);
        QVERIFY(dialog.isModal());
    }

    void mayHaveNoNameAndNotBeModal()
    {
        const ImagePropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr, nullptr, false);

        QVERIFY(dialog.objectName().isEmpty());
        QVERIFY(!dialog.isModal());
    }

    void tellsOfAPageOf32Bits()
    {
        const ImagePropertiesDialog dialog(solid_page({5, 3}, 0xff404040), 0.0625, nullptr, nullptr, true);

        QCOMPARE(lines(dialog),
                 (QStringList{u"Width [pixels]: 5"_s, u"Height [pixels]: 3"_s, u"Bit Depth: 32"_s,
                              u"Colors in Palette: 0"_s, u"Grayscale: Yes"_s, u"Bytes (not including palette): 60"_s,
                              u"Bytes per line: 20"_s, u"Zoom coefficient: 0.0625"_s}));
    }

    void countsNoPalette()
    {
        const ImagePropertiesDialog dialog(patterned_page({5, 3}, 8), 8.0, nullptr, nullptr, true);

        QCOMPARE(
            lines(dialog).sliced(2),
            (QStringList{u"Bit Depth: 8"_s, u"Colors in Palette: 256"_s, u"Grayscale: No"_s,
                         u"Bytes (not including palette): 24"_s, u"Bytes per line: 8"_s, u"Zoom coefficient: 8"_s}));
    }

    void captionsBelongToTheirValues()
    {
        const ImagePropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr, nullptr, true);
        const auto *const grid = qobject_cast<QGridLayout *>(dialog.layout());

        for (int row = 0; row < Rows; ++row)
            QCOMPARE(qobject_cast<QLabel *>(grid->itemAtPosition(row, 0)->widget())->buddy(),
                     grid->itemAtPosition(row, 1)->widget());
    }

    void okAtTheBottomCloses()
    {
        ImagePropertiesDialog dialog(solid_page({4, 3}, 0xff102030), 1.0, nullptr, nullptr, true);
        auto *const button = dialog.findChild<QPushButton *>(u"my_ok_btn"_s);
        QCOMPARE(button->text(), u"OK"_s);
        QCOMPARE(qobject_cast<QGridLayout *>(dialog.layout())->itemAtPosition(9, 1)->widget(), button);
        dialog.show();

        QTest::mouseClick(button, Qt::LeftButton);

        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int{QDialog::Accepted});
    }
};

QTEST_MAIN(tst_ImagePropertiesDialog)
#include "tst_ImagePropertiesDialog.moc"

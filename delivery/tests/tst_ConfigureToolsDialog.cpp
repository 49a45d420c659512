#include "ConfigureToolsDialog.h"
#include "TemporaryHome.h"

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QValidator>

using namespace Qt::StringLiterals;

namespace {

const QStringList fieldNames{
    u"graphics_editor"_s, u"graphics_editor_input"_s, u"OCR"_s, u"OCR_input"_s, u"OCR_output"_s, u"text_editor"_s};

class Fixture
{
public:
    [[nodiscard]] QLineEdit &field(const QString &name) const { return *dialog.findChild<QLineEdit *>(name); }
    [[nodiscard]] QStringList texts() const
    {
        QStringList texts;
        for (const QString &name : fieldNames)
            texts.append(field(name).text());
        return texts;
    }
    void press(const QString &name) const { QTest::mouseClick(dialog.findChild<QPushButton *>(name), Qt::LeftButton); }

    const TemporaryHome home; // before the dialog, which reads its settings there
    ConfigureToolsDialog dialog;
};

} // namespace

class tst_ConfigureToolsDialog : public QObject
{
    Q_OBJECT

private slots:
    void withoutSettingsTheDefaultsAreShownAndCancelStoresNothing()
    {
        const Fixture fixture;

        QCOMPARE(fixture.texts(),
                 (QStringList{u"gimp <BMP>"_s, u"~/gimp_input.bmp"_s, u"gocr -i <PBM> -o <TXT>"_s, u"~/ocr_input.pbm"_s,
                              u"~/recognized.txt"_s, u"kwrite <TXT>"_s}));

        fixture.field(u"OCR"_s).setText(u"other"_s);
        fixture.press(u"buttonCancel"_s);

        QCOMPARE(fixture.dialog.result(), int{QDialog::Rejected});
        QCOMPARE(QSettings().allKeys(), QStringList());
    }

    void returnPressesTheButtonThatHasTheKeyboard()
    {
        Fixture fixture;
        fixture.dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&fixture.dialog));
        fixture.field(u"OCR"_s).setText(u"other"_s);
        auto *const cancel = fixture.dialog.findChild<QPushButton *>(u"buttonCancel"_s);
        cancel->setFocus();

        QTest::keyClick(cancel, Qt::Key_Return);

        QCOMPARE(fixture.dialog.result(), int{QDialog::Rejected});
        QCOMPARE(QSettings().allKeys(), QStringList());
    }

    void returnInAFieldIsOk()
    {
        Fixture fixture;
        fixture.dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&fixture.dialog));

        QTest::keyClick(&fixture.field(u"OCR"_s), Qt::Key_Return);

        QCOMPARE(fixture.dialog.result(), int{QDialog::Accepted});
    }

    void okStoresAllFieldsAsTheyStand()
    {
        Fixture fixture;
        fixture.dialog.show();
        for (const QString &name : fieldNames)
            fixture.field(name).setText(u"~/of "_s + name);
        fixture.field(u"OCR_output"_s).clear(); // an empty one is stored empty

        fixture.press(u"buttonOk"_s);

        QCOMPARE(fixture.dialog.result(), int{QDialog::Accepted});
        for (const QString &name : fieldNames)
            QCOMPARE(QSettings().value(u"scfgtools/"_s + name, u"missing"_s).toString(),
                     name == "OCR_output"_L1 ? QString() : u"~/of "_s + name);
        QCOMPARE(ConfigureToolsDialog().findChild<QLineEdit *>(u"OCR"_s)->text(), u"~/of OCR"_s);
        QCOMPARE(ConfigureToolsDialog::OCR_output(), QString()); // which beats the default
    }

    void accessorsOfTheDialogAreThoseOfTheSettings()
    {
        const TemporaryHome home;

        QVERIFY(ConfigureToolsDialog::set_graphics_editor(u"1"_s));
        QVERIFY(ConfigureToolsDialog::set_graphics_editor_input(u"2"_s));
        QVERIFY(ConfigureToolsDialog::set_OCR(u"3"_s));
        QVERIFY(ConfigureToolsDialog::set_OCR_input(u"4"_s));
        QVERIFY(ConfigureToolsDialog::set_OCR_output(u"5"_s));
        QVERIFY(ConfigureToolsDialog::set_text_editor(u"6"_s));

        QCOMPARE(
            (QStringList{ToolSettings::graphics_editor(), ToolSettings::graphics_editor_input(), ToolSettings::OCR(),
                         ToolSettings::OCR_input(), ToolSettings::OCR_output(), ToolSettings::text_editor()}),
            (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
        QCOMPARE((QStringList{ConfigureToolsDialog::graphics_editor(), ConfigureToolsDialog::graphics_editor_input(),
                              ConfigureToolsDialog::OCR(), ConfigureToolsDialog::OCR_input(),
                              ConfigureToolsDialog::OCR_output(), ConfigureToolsDialog::text_editor()}),
                 (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
    }

    void fieldTakesUpTo512Characters_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : fieldNames)
            QTest::addRow("%s", qPrintable(name)) << name;
    }
    void fieldTakesUpTo512Characters()
    {
        QFETCH(const QString, name);
        const Fixture fixture;
        QLineEdit &field = fixture.field(name);
        QCOMPARE(field.validator()->parent(), &fixture.dialog);

        field.setText(QString(511, u'ü'));
        QTest::keyClicks(&field, u"yz"_s);

        QCOMPARE(field.text(), QString(511, u'ü') + 'y'_L1);
        field.clear();
        QVERIFY(!field.hasAcceptableInput()); // but nobody asks
    }

    void textsAreThoseOfTheForm()
    {
        const Fixture fixture;
        const auto label = [&](const QString &name) { return fixture.dialog.findChild<QLabel *>(name)->text(); };

        QCOMPARE(fixture.dialog.objectName(), u"ConfigureToolsDialog"_s);
        QCOMPARE(fixture.dialog.windowTitle(), u"Configure Tools"_s);
        QCOMPARE(label(u"TextLabel1"_s), u"Graphics Editor Command:"_s);
        QCOMPARE(label(u"TextLabel2"_s), u"Graphics Editor Input <BMP>:"_s);
        QCOMPARE(label(u"TextLabel3"_s), u"OCR Command:"_s);
        QCOMPARE(label(u"TextLabel4"_s), u"OCR Input <PBM>:"_s);
        QCOMPARE(label(u"TextLabel5"_s), u"OCR Output / Text Editor Input <TXT>):"_s);
        QCOMPARE(label(u"TextLabel6"_s), u"Text Editor Command:"_s);
        QVERIFY(fixture.dialog.findChild<QPushButton *>(u"buttonOk"_s)->isDefault());
    }

    void everyFieldAndButtonHasAnAccessibleName()
    {
        const Fixture fixture;

        for (const QLineEdit *const field : fixture.dialog.findChildren<QLineEdit *>())
            QVERIFY2(!field->accessibleName().isEmpty(), qPrintable(field->objectName()));
        QCOMPARE(fixture.dialog.findChildren<QLineEdit *>().size(), fieldNames.size());
    }

    void dialogIsAtLeast400By291AndShowsAllThatItHolds()
    {
        Fixture fixture;
        fixture.dialog.show();

        QCOMPARE(fixture.dialog.size(), QSize(400, 291).expandedTo(fixture.dialog.sizeHint()));
    }
};

QTEST_MAIN(tst_ConfigureToolsDialog)
#include "tst_ConfigureToolsDialog.moc"

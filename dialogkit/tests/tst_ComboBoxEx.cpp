#include "ComboBoxEx.h"

#include <QAbstractItemView>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Sizes of paper by their English and German names, and one entry without a pair.
void fill(ComboBoxEx &box)
{
    box.insertTranslated(u"Brief"_s, u"Letter"_s);
    box.insertTranslated(u"Rechnung"_s, u"Statement"_s);
    box.insertTranslated(u"Rechtsakte"_s, u"Legal"_s);
    box.insertItem(u"A4"_s);
}

void pick_by_popup(ComboBoxEx &box, int index)
{
    box.showPopup();
    box.view()->setCurrentIndex(box.model()->index(index, 0));
    QTest::keyClick(box.view(), Qt::Key_Return);
}

} // namespace

class tst_ComboBoxEx : public QObject
{
    Q_OBJECT

private slots:
    void declaresItsSignalAndSlotsInTheirOrder()
    {
        const QMetaObject &meta = ComboBoxEx::staticMetaObject;
        QByteArrayList signatures;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            signatures << meta.method(i).methodSignature();

        QCOMPARE(signatures,
                 QByteArrayList({"translationActivated(QString)", "onActivated(QString)", "setNumber(int)",
                                 "setNumber(double)", "setString2(QString)"}));
        QCOMPARE(meta.method(meta.indexOfSlot("onActivated(QString)")).access(), QMetaMethod::Private);
    }

    void mayBeTypedInOnlyIfTold()
    {
        QVERIFY(ComboBoxEx(true, nullptr, "box").isEditable());
        QVERIFY(!ComboBoxEx(false, nullptr, "box").isEditable());
        QVERIFY(!ComboBoxEx(nullptr, "box").isEditable());
        QCOMPARE(ComboBoxEx(nullptr, "box").objectName(), u"box"_s);
    }

    void showsTranslatedTextsInTheirOrder()
    {
        ComboBoxEx box;

        fill(box);

        QCOMPARE(box.itemText(0), u"Brief"_s);
        QCOMPARE(box.itemText(1), u"Rechnung"_s);
        QCOMPARE(box.itemText(2), u"Rechtsakte"_s);
        QCOMPARE(box.itemText(3), u"A4"_s);
    }

    void tellsTheKeyOfAPickedEntry()
    {
        ComboBoxEx box;
        fill(box);
        box.show();
        const QSignalSpy activated(&box, &ComboBoxEx::translationActivated);

        QTest::keyClick(&box, Qt::Key_Down);

        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.at(0).at(0).toString(), u"Statement"_s);
    }

    void tellsTheKeyOfTheSameEntryPickedAgain()
    {
        ComboBoxEx box;
        fill(box);
        box.show();
        const QSignalSpy activated(&box, &ComboBoxEx::translationActivated);

        pick_by_popup(box, 0);

        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.at(0).at(0).toString(), u"Letter"_s);
    }

    void tellsTheFirstKeyOfATextThatSeveralHave()
    {
        ComboBoxEx box;
        box.insertItem(u"none"_s);
        box.insertTranslated(u"Akte"_s, u"file"_s);
        box.insertTranslated(u"Akte"_s, u"act"_s);
        box.show();
        const QSignalSpy activated(&box, &ComboBoxEx::translationActivated);

        pick_by_popup(box, 1);

        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.at(0).at(0).toString(), u"act"_s);
    }

    void tellsTheNullStringForAPlainEntry()
    {
        ComboBoxEx box;
        fill(box);
        box.show();
        const QSignalSpy activated(&box, &ComboBoxEx::translationActivated);

        QTest::keyClick(&box, Qt::Key_End);

        QCOMPARE(box.currentText(), u"A4"_s);
        QCOMPARE(activated.count(), 1);
        QVERIFY(activated.at(0).at(0).toString().isNull());
    }

    void tellsNothingWhenItIsSet()
    {
        ComboBoxEx box;
        fill(box);
        const QSignalSpy activated(&box, &ComboBoxEx::translationActivated);

        box.setString2(u"Legal"_s);

        QCOMPARE(activated.count(), 0);
    }

    void keepsTheFormerEntryOfAKeyInsertedTwice()
    {
        ComboBoxEx box;
        box.insertTranslated(u"Brief"_s, u"Letter"_s);
        box.insertTranslated(u"Buchstabe"_s, u"Letter"_s);
        box.show();
        const QSignalSpy activated(&box, &ComboBoxEx::translationActivated);

        QCOMPARE(box.count(), 2);
        box.setString2(u"Letter"_s);
        QCOMPARE(box.currentText(), u"Buchstabe"_s);
        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.currentText(), u"Brief"_s);
        QVERIFY(activated.at(0).at(0).toString().isNull());
    }

    void setsAnEntryByItsKey()
    {
        ComboBoxEx box;
        fill(box);

        box.setString2(u"Legal"_s);

        QCOMPARE(box.currentText(), u"Rechtsakte"_s);
    }

    void setsAnEntryByText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("whole text") << u"Rechtsakte"_s << u"Rechtsakte"_s;
        QTest::newRow("beginning of two entries") << u"Rech"_s << u"Rechnung"_s;
        QTest::newRow("beginning of the entry on show and one above it") << u"R"_s << u"Rechnung"_s;
        QTest::newRow("other capitals") << u"RECHN"_s << u"Rechnung"_s;
        QTest::newRow("plain entry") << u"A4"_s << u"A4"_s;
        QTest::newRow("unknown") << u"Folio"_s << u"Rechtsakte"_s;
        QTest::newRow("only within an entry") << u"akte"_s << u"Rechtsakte"_s;
        QTest::newRow("only within another entry") << u"rief"_s << u"Rechtsakte"_s;
        QTest::newRow("empty") << u""_s << u"Rechtsakte"_s;
    }

    void setsAnEntryByText()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, shown);
        ComboBoxEx box;
        fill(box);
        box.setCurrentItem(2);

        box.setString2(text);

        QCOMPARE(box.currentText(), shown);
    }

    void setsAnEntryByNumber()
    {
        ComboBoxEx box;
        box.insertItem(u"75 dpi"_s);
        box.insertItem(u"300 dpi"_s);
        box.insertItem(u"0.5"_s);
        box.insertTranslated(u"viel"_s, u"1.5e+06"_s);

        box.setNumber(300);
        QCOMPARE(box.currentText(), u"300 dpi"_s);

        box.setNumber(0.5);
        QCOMPARE(box.currentText(), u"0.5"_s);

        box.setNumber(1500000.0);
        QCOMPARE(box.currentText(), u"viel"_s);
    }

    void entryShownForAKeyIsFoundByItsBeginning()
    {
        ComboBoxEx box;
        box.insertItem(u"Rechnungsbuch"_s);
        box.insertTranslated(u"Rechnung"_s, u"Statement"_s);
        box.setCurrentItem(1);

        box.setString2(u"Statement"_s);

        QCOMPARE(box.currentText(), u"Rechnungsbuch"_s);
    }
};

QTEST_MAIN(tst_ComboBoxEx)
#include "tst_ComboBoxEx.moc"

#include "NextBox.h"
#include "NextFileDialog.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_NextBox : public QObject
{
    Q_OBJECT

private slots:
    void pressesTheButtonAskedFor();
    void remembersWhatTheBoxSaid();
    void boxWithOneButtonIsAnswered();
    void twoBoxesAreAnsweredInOrder();
    void boxThatNeverComesFailsTheTest();
    void boxWithoutTheButtonFailsTheTestAndCloses();
    void modelessBoxIsLeftAlone();
    void dialogIsWorkedWhateverBoxComesBefore();
    void anotherKindOfDialogIsLeftAlone();
};

namespace {

QMessageBox::StandardButton ask(const QString &title)
{
    return QMessageBox::warning(nullptr, title, u"Sure?"_s, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                                QMessageBox::No);
}

} // namespace

void tst_NextBox::pressesTheButtonAskedFor()
{
    const NextBox box = answer_next_box(QMessageBox::Yes);

    QCOMPARE(ask(u"Save"_s), QMessageBox::Yes);

    QVERIFY(box.hasCome());
}

void tst_NextBox::remembersWhatTheBoxSaid()
{
    const NextBox box = answer_next_box(QMessageBox::Cancel);

    QCOMPARE(ask(u"Save"_s), QMessageBox::Cancel);

    QCOMPARE(box.title(), u"Save"_s);
    QCOMPARE(box.text(), u"Sure?"_s);
    QCOMPARE(box.buttons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCOMPARE(box.defaultButton(), QMessageBox::No);
}

void tst_NextBox::boxWithOneButtonIsAnswered()
{
    const NextBox box = answer_next_box(QMessageBox::Ok);

    QMessageBox::warning(nullptr, u"Load failed"_s, u"Error"_s);

    QCOMPARE(box.title(), u"Load failed"_s);
    QCOMPARE(box.buttons(), QMessageBox::Ok);
}

void tst_NextBox::twoBoxesAreAnsweredInOrder()
{
    const NextBox first = answer_next_box(QMessageBox::Yes);
    const NextBox second = answer_next_box(QMessageBox::No);

    QCOMPARE(ask(u"one"_s), QMessageBox::Yes);
    QCOMPARE(ask(u"two"_s), QMessageBox::No);

    QCOMPARE(first.title(), u"one"_s);
    QCOMPARE(second.title(), u"two"_s);
}

void tst_NextBox::boxThatNeverComesFailsTheTest()
{
    QEXPECT_FAIL("", "no box is shown", Continue);
    {
        const NextBox box = answer_next_box(QMessageBox::Yes);
    }
}

void tst_NextBox::boxWithoutTheButtonFailsTheTestAndCloses()
{
    const NextBox box = answer_next_box(QMessageBox::Abort);

    QEXPECT_FAIL("", "the box has no Abort", Continue);
    (void)ask(u"Save"_s); // the answer of a box closed by force means nothing

    QCOMPARE(box.title(), u"Save"_s);
}

void tst_NextBox::modelessBoxIsLeftAlone()
{
    QMessageBox modeless(QMessageBox::Information, u"Note"_s, u"Text"_s, QMessageBox::Ok);
    modeless.setModal(false);
    const NextBox box = answer_next_box(QMessageBox::Yes);
    modeless.show();
    QVERIFY(QTest::qWaitForWindowExposed(&modeless));

    QCOMPARE(ask(u"Save"_s), QMessageBox::Yes);

    QCOMPARE(box.title(), u"Save"_s);
    QVERIFY(modeless.isVisible());
}

void tst_NextBox::dialogIsWorkedWhateverBoxComesBefore()
{
    const NextDialog dialog([](QDialog &shown) { shown.accept(); });
    const NextBox box = answer_next_box(QMessageBox::No);

    QCOMPARE(ask(u"Save"_s), QMessageBox::No);
    QVERIFY(!dialog.hasCome());
    QCOMPARE(QDialog().exec(), int{QDialog::Accepted});

    QVERIFY(dialog.hasCome());
}

void tst_NextBox::anotherKindOfDialogIsLeftAlone()
{
    const NextFileDialog files([](QFileDialog &shown) { shown.reject(); });
    const NextDialog dialog([](QDialog &shown) { shown.accept(); });

    QCOMPARE(QDialog().exec(), int{QDialog::Accepted});
    QVERIFY(!files.hasCome());
    QCOMPARE(QFileDialog().exec(), int{QDialog::Rejected});
}

QTEST_MAIN(tst_NextBox)
#include "tst_NextBox.moc"

#include "NextBox.h"

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

QTEST_MAIN(tst_NextBox)
#include "tst_NextBox.moc"

// A test whose dialog nobody answers, and one after it.

#include <QDialog>
#include <QTest>

class SampleUnansweredDialog : public QObject
{
    Q_OBJECT

private slots:
    void waitsForNobody()
    {
        QDialog dialog;
        dialog.setWindowTitle(QStringLiteral("Who is there?"));
        (void)dialog.exec(); // how it ended is for the other program to see
    }

    void comesNext() { }
};

QTEST_MAIN(SampleUnansweredDialog)

#include "sample_unanswered_dialog.moc"

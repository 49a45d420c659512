#include "dialog_data.h"
#include "FileDialogUser.h"
#include "NextBox.h"
#include "ShownDialog.h"
#include "TemporaryHome.h"

#include <QChildEvent>
#include <QDialog>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Closes each message box and fails the test.
class NoBox : public QObject
{
public:
    NoBox() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *const box = qobject_cast<QMessageBox *>(watched);
        if (event->type() == QEvent::Show && box != nullptr) {
            QTest::qFail(qPrintable("a box came: "_L1 + box->text()), __FILE__, __LINE__);
            QMetaObject::invokeMethod(box, &QDialog::reject, Qt::QueuedConnection);
        }
        return false;
    }
};

} // namespace

class tst_ImageFileDialog : public QObject
{
    Q_OBJECT

private slots:
    void nothingNamedIsNoFile()
    {
        const TemporaryHome home;
        const ShownDialog dialog(home);

        choose_filter(dialog, jpegFilter);

        QCOMPARE(dialog.selectedFile(), QString());
        QCOMPARE(name_in(dialog), QString());
        QCOMPARE(dialog.directory().path(), home.path());
    }

    void nameDeletedAgainIsNoFile()
    {
        const TemporaryHome home;
        const ShownDialog dialog(home);
        type_name(dialog, u"scan.png"_s);

        type_name(dialog, {});

        QCOMPARE(dialog.selectedFile(), QString());
    }

    void markedRowIsTheFileThoughTheFieldIsEmpty()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"scan.png"_s), {});
        const ShownDialog dialog(home);
        mark_row(dialog, u"scan.png"_s);

        dialog.findChild<QLineEdit *>("fileNameEdit"_L1)->clear();

        QCOMPARE(dialog.selectedFile(), home.filePath(u"scan.png"_s));
    }

    void nameIsTakenAsItStands_data()
    {
        add_name_rows();
        QTest::newRow("leading colon") << u":scan.png"_s;
    }

    void nameIsTakenAsItStands()
    {
        QFETCH(const QString, name);
        const TemporaryHome home;
        const ShownDialog dialog(home);
        const QSignalSpy accepted(&dialog, &QDialog::accepted);

        type_name(dialog, name);
        press_accept(dialog);

        QCOMPARE(accepted.count(), 1);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.selectedFile(), QString(home.path() + u'/' + name));
    }

    void absolutePathInAnotherDirectoryIsTaken_data() { add_name_rows(); }
    void absolutePathInAnotherDirectoryIsTaken()
    {
        QFETCH(const QString, name);
        const TemporaryHome home;
        const QTemporaryDir elsewhere;
        const QString path = elsewhere.path() + u'/' + name;
        const ShownDialog dialog(home);

        type_name(dialog, path);
        press_accept(dialog);

        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.selectedFile(), path);
    }

    void existingNameIsTakenAfterYes_data() { nameIsTakenAsItStands_data(); }
    void existingNameIsTakenAfterYes()
    {
        QFETCH(const QString, name);
        const TemporaryHome home;
        const QString path = home.path() + u'/' + name;
        write_file(path, {});
        const ShownDialog dialog(home);
        const QSignalSpy accepted(&dialog, &QDialog::accepted);
        type_name(dialog, name);
        const NextBox box = answer_next_box(QMessageBox::Yes);

        press_accept(dialog);

        QCOMPARE(box.text(), QString("File '"_L1 + path + "' already exists.\nDo you want to replace it?"_L1));
        QCOMPARE(box.title(), u"Save"_s);
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.buttons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.defaultButton(), QMessageBox::No);
        QCOMPARE(accepted.count(), 1);
        QCOMPARE(dialog.selectedFile(), path);
    }

    void noLeavesTheDialogOpenForAnotherName()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"old.png"_s), {});
        const ShownDialog dialog(home);
        const QSignalSpy accepted(&dialog, &QDialog::accepted);
        type_name(dialog, u"old.png"_s);
        const NextBox box = answer_next_box(QMessageBox::No);
        press_accept(dialog);
        QCOMPARE(accepted.count(), 0);
        QVERIFY(dialog.isVisible());

        type_name(dialog, u"new.png"_s);
        press_accept(dialog);

        QCOMPARE(accepted.count(), 1);
        QCOMPARE(dialog.selectedFile(), home.filePath(u"new.png"_s));
    }

    void directoryIsEnteredWithoutAQuestion_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isTyped");
        QTest::newRow("typed") << u"scans"_s << true;
        QTest::newRow("marked") << u"scans"_s << false;
        QTest::newRow("typed, in quotation marks") << u"my \"scans\""_s << true;
        QTest::newRow("marked, in quotation marks") << u"my \"scans\""_s << false;
    }

    void directoryIsEnteredWithoutAQuestion()
    {
        QFETCH(const QString, name);
        QFETCH(const bool, isTyped);
        const TemporaryHome home;
        QVERIFY(QDir(home.path()).mkdir(name));
        const ShownDialog dialog(home);
        const NoBox noBox;
        if (isTyped)
            type_name(dialog, name);
        else
            mark_row(dialog, name);

        press_accept(dialog);

        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.directory().path(), home.filePath(name));
    }

    void markedDirectoryIsEnteredThoughTheTypedNameIsThatOfAFile()
    {
        const TemporaryHome home;
        QVERIFY(QDir(home.path()).mkdir(u"a scans"_s));
        write_file(home.filePath(u"old \".png"_s), {});
        const ShownDialog dialog(home);
        const NoBox noBox;
        type_name(dialog, u"old \".png"_s);
        mark_row(dialog, u"a scans"_s);

        press_accept(dialog);

        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.directory().path(), home.filePath(u"a scans"_s));
    }

    void existingFileWantedRaisesNoQuestion()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"old.png"_s), {});
        const ShownDialog dialog(home, QFileDialog::AcceptOpen);
        const QSignalSpy accepted(&dialog, &QDialog::accepted);
        type_name(dialog, u"old.png"_s);

        press_accept(dialog);

        QCOMPARE(accepted.count(), 1);
        QCOMPARE(dialog.selectedFile(), home.filePath(u"old.png"_s));
    }
};

QTEST_MAIN(tst_ImageFileDialog)
#include "tst_ImageFileDialog.moc"

#include "dialog_data.h"
#include "FileDialogUser.h"
#include "ImageFileDialog.h"
#include "NextBox.h"
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

QList<ImageFormat> threeFormats()
{
    return {{u"png"_s, u"Portable Network Graphics"_s, {u"png"_s}},
            {u"jpeg"_s, u"JPEG"_s, {u"jpg"_s, u"jpeg"_s}},
            {u"ALL"_s, u"All files"_s, {u"*"_s}}};
}

/// A dialog on the screen that saves into the home of a test, with three filters, PNG first.
class ShownDialog : public ImageFileDialog
{
public:
    explicit ShownDialog(const TemporaryHome &home, AcceptMode mode = AcceptSave) : ImageFileDialog(nullptr)
    {
        setWindowTitle(u"Save"_s);
        setFileMode(mode == AcceptSave ? AnyFile : ExistingFile);
        setAcceptMode(mode);
        setOption(DontConfirmOverwrite);
        setFormats(threeFormats());
        setDirectory(home.path());
        setModal(true);
        show();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("the file dialog is not on the screen");
    }
};

/// Marks a row of the list as a click does, once it has @p count of them. The list comes in by itself.
void mark_row(const ImageFileDialog &dialog, int row, int count)
{
    auto *const rows = dialog.findChild<QListView *>("listView"_L1);
    if (!QTest::qWaitFor([rows, count] { return rows->model()->rowCount(rows->rootIndex()) == count; }))
        qFatal("the list does not have its rows");
    rows->setFocus();
    rows->selectionModel()->select(rows->model()->index(row, 0, rows->rootIndex()),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

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

/// Gives each file dialog made during its life a child field of a given name and length limit.
class FieldGiver : public QObject
{
public:
    FieldGiver(QString name, int maxLength) : m_name(std::move(name)), m_maxLength(maxLength)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *const dialog = qobject_cast<QFileDialog *>(watched);
        if (event->type() != QEvent::ChildAdded || dialog == nullptr || m_bGiven)
            return false;
        m_bGiven = true;
        auto *field = new QLineEdit(dialog);
        field->setObjectName(m_name);
        field->setMaxLength(m_maxLength);
        return false;
    }

private:
    QString m_name;
    int m_maxLength;
    bool m_bGiven = false;
};

} // namespace

class tst_ImageFileDialog : public QObject
{
    Q_OBJECT

private slots:
    void filtersStandInTheOrderOfTheFormats();
    void filterLeadsBackToItsFormatAndOtherTextToNone();
    void ofEqualFiltersTheLastFormatCounts();

    void nothingNamedIsNoFile();
    void nameDeletedAgainIsNoFile();
    void markedRowIsTheFileThoughTheFieldIsEmpty();
    void nameIsTakenAsItStands_data();
    void nameIsTakenAsItStands();

    void absolutePathInAnotherDirectoryIsTaken_data();
    void absolutePathInAnotherDirectoryIsTaken();

    void filterGivesTheNameItsSuffix_data();
    void filterGivesTheNameItsSuffix();
    void filterReplacesTheNameThoughTheFieldHasTheFocus();
    void filterDropsTheDirectoryBeforeTheName();
    void filterOfAllFilesEndsTheNameInAnAsterisk();
    void longestNameGetsItsSuffix();
    void nameTooLongForItsSuffixIsLeftAlone_data();
    void nameTooLongForItsSuffixIsLeftAlone();
    void fieldOfTheOldNameLimitsTheLength();

    void newNameIsTakenWithoutAQuestion();
    void existingNameIsTakenAfterYes_data();
    void existingNameIsTakenAfterYes();
    void noLeavesTheDialogOpenForAnotherName();
    void directoryIsEnteredWithoutAQuestion_data();
    void directoryIsEnteredWithoutAQuestion();
    void markedDirectoryIsEnteredThoughTheTypedNameIsThatOfAFile();
    void filterLeavesTheNameOfAMarkedDirectoryAlone_data();
    void filterLeavesTheNameOfAMarkedDirectoryAlone();
    void filterOfAllFilesListsNamesWithoutADotToo();
    void existingFileWantedRaisesNoQuestion();
};

void tst_ImageFileDialog::filtersStandInTheOrderOfTheFormats()
{
    const TemporaryHome home;
    ImageFileDialog dialog(nullptr);

    dialog.setFormats(threeFormats());

    QCOMPARE(dialog.nameFilters(), QStringList({pngFilter, jpegFilter, allFilter}));
    QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
}

void tst_ImageFileDialog::filterLeadsBackToItsFormatAndOtherTextToNone()
{
    const TemporaryHome home;
    ImageFileDialog dialog(nullptr);

    dialog.setFormats(threeFormats());

    QCOMPARE(dialog.formatForFilter(jpegFilter), threeFormats().at(1));
    QCOMPARE(dialog.formatForFilter(u"PNG"_s), ImageFormat());
}

void tst_ImageFileDialog::ofEqualFiltersTheLastFormatCounts()
{
    const TemporaryHome home;
    ImageFileDialog dialog(nullptr);
    dialog.setFormats(threeFormats());

    dialog.setFormats({{u"jpg"_s, u"JPEG"_s, {u"jpg"_s, u"jpeg"_s}}});

    QCOMPARE(dialog.formatForFilter(jpegFilter).format, u"jpg"_s);
    QCOMPARE(dialog.nameFilters(), QStringList(jpegFilter));
}

void tst_ImageFileDialog::nothingNamedIsNoFile()
{
    const TemporaryHome home;
    const ShownDialog dialog(home);

    choose_filter(dialog, jpegFilter);

    QCOMPARE(dialog.selectedFile(), QString());
    QCOMPARE(name_in(dialog), QString());
    QCOMPARE(dialog.directory().path(), home.path());
}

void tst_ImageFileDialog::nameDeletedAgainIsNoFile()
{
    const TemporaryHome home;
    const ShownDialog dialog(home);
    type_name(dialog, u"scan.png"_s);

    type_name(dialog, {});

    QCOMPARE(dialog.selectedFile(), QString());
}

void tst_ImageFileDialog::markedRowIsTheFileThoughTheFieldIsEmpty()
{
    const TemporaryHome home;
    make_file(home.filePath(u"scan.png"_s));
    const ShownDialog dialog(home);
    mark_row(dialog, 0, 1);

    dialog.findChild<QLineEdit *>("fileNameEdit"_L1)->clear();

    QCOMPARE(dialog.selectedFile(), home.filePath(u"scan.png"_s));
}

void tst_ImageFileDialog::nameIsTakenAsItStands_data()
{
    add_name_rows();
    QTest::newRow("leading colon") << u":scan.png"_s;
}

void tst_ImageFileDialog::nameIsTakenAsItStands()
{
    QFETCH(const QString, name);
    const TemporaryHome home;
    const ShownDialog dialog(home);
    const QSignalSpy accepted(&dialog, &QDialog::accepted);

    type_name(dialog, name);
    press_accept(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog.selectedFile(), QString(home.path() + u'/' + name));
}

void tst_ImageFileDialog::absolutePathInAnotherDirectoryIsTaken_data()
{
    add_name_rows();
}

void tst_ImageFileDialog::absolutePathInAnotherDirectoryIsTaken()
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

void tst_ImageFileDialog::filterGivesTheNameItsSuffix_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("name");
    QTest::newRow("no suffix") << u"report"_s << pngFilter << u"report.png"_s;
    QTest::newRow("other suffix") << u"report.jpg"_s << pngFilter << u"report.png"_s;
    QTest::newRow("second suffix of the format") << u"report.jpeg"_s << jpegFilter << u"report.jpg"_s;
    QTest::newRow("last of several") << u"a.b.c"_s << jpegFilter << u"a.b.jpg"_s;
    QTest::newRow("dot at the end") << u"report."_s << pngFilter << u"report.png"_s;
    QTest::newRow("dot at the start only") << u".hidden"_s << pngFilter << u".hidden"_s;
    QTest::newRow("place marker") << u"page %1"_s << pngFilter << u"page %1.png"_s;
    QTest::newRow("ampersand and blanks") << u" Smith & Sons "_s << pngFilter << u" Smith & Sons .png"_s;
    QTest::newRow("quotation marks") << u"my \"scan\".jpg"_s << pngFilter << u"my \"scan\".png"_s;
    QTest::newRow("colon") << u"scan 10:30"_s << pngFilter << u"scan 10:30.png"_s;
    QTest::newRow("leading colon") << u":scan"_s << pngFilter << u":scan.png"_s;
    QTest::newRow("letters beyond ASCII") << u"Stra\u00dfe.jpg"_s << pngFilter << u"Stra\u00dfe.png"_s;
}

void tst_ImageFileDialog::filterGivesTheNameItsSuffix()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, filter);
    QFETCH(const QString, name);
    const TemporaryHome home;
    ShownDialog dialog(home);
    type_name(dialog, typed);

    dialog.findChild<QWidget *>("fileTypeCombo"_L1)->setFocus();
    dialog.OnFilterSelected(filter);

    QCOMPARE(name_in(dialog), name);
    QCOMPARE(dialog.directory().path(), home.path());
}

void tst_ImageFileDialog::filterReplacesTheNameThoughTheFieldHasTheFocus()
{
    const TemporaryHome home;
    ShownDialog dialog(home);
    type_name(dialog, u"report"_s);

    dialog.OnFilterSelected(jpegFilter);

    QVERIFY(dialog.findChild<QLineEdit *>("fileNameEdit"_L1)->hasFocus());
    QCOMPARE(name_in(dialog), u"report.jpg"_s);
}

void tst_ImageFileDialog::filterDropsTheDirectoryBeforeTheName()
{
    const TemporaryHome home;
    const ShownDialog dialog(home);
    type_name(dialog, u"/usr/share/report.jpg"_s);

    choose_filter(dialog, pngFilter);

    QCOMPARE(name_in(dialog), u"report.png"_s);
    QCOMPARE(dialog.selectedFile(), home.filePath(u"report.png"_s));
}

void tst_ImageFileDialog::filterOfAllFilesEndsTheNameInAnAsterisk()
{
    const TemporaryHome home;
    const ShownDialog dialog(home);
    type_name(dialog, u"report.png"_s);

    choose_filter(dialog, allFilter);

    QCOMPARE(name_in(dialog), u"report.*"_s);
}

void tst_ImageFileDialog::longestNameGetsItsSuffix()
{
    const TemporaryHome home;
    const ShownDialog dialog(home);
    const QString base(251, u'a');
    type_name(dialog, base);

    choose_filter(dialog, jpegFilter);

    QCOMPARE(name_in(dialog), QString(base + ".jpg"_L1));
}

void tst_ImageFileDialog::nameTooLongForItsSuffixIsLeftAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("fits without the suffix") << QString(252, u'a');
    QTest::newRow("fits exactly without the suffix") << QString(255, u'a');
    QTest::newRow("of 255 letters and more bytes") << QString(255, u'\u00e9');
}

void tst_ImageFileDialog::nameTooLongForItsSuffixIsLeftAlone()
{
    QFETCH(const QString, name);
    const TemporaryHome home;
    const ShownDialog dialog(home);
    type_name(dialog, name);
    const NextBox box = answerNextBox(QMessageBox::Ok);

    choose_filter(dialog, jpegFilter);

    QCOMPARE(box.text(), u"Can't append '.jpg' extension, file name is too long."_s);
    QCOMPARE(box.title(), QString());
    QCOMPARE(box.buttons(), QMessageBox::Ok);
    QCOMPARE(name_in(dialog), name);
}

void tst_ImageFileDialog::fieldOfTheOldNameLimitsTheLength()
{
    const TemporaryHome home;
    const FieldGiver giver(u"name/filter editor"_s, 10);
    const ShownDialog dialog(home);
    type_name(dialog, u"abcdef"_s);
    choose_filter(dialog, jpegFilter);
    QCOMPARE(name_in(dialog), u"abcdef.jpg"_s);
    type_name(dialog, u"abcdefg"_s);
    const NextBox box = answerNextBox(QMessageBox::Ok);

    choose_filter(dialog, pngFilter);

    QCOMPARE(name_in(dialog), u"abcdefg"_s);
}

void tst_ImageFileDialog::newNameIsTakenWithoutAQuestion()
{
    const TemporaryHome home;
    const ShownDialog dialog(home);
    const QSignalSpy accepted(&dialog, &QDialog::accepted);
    type_name(dialog, u"new.png"_s);

    press_accept(dialog);

    QCOMPARE(accepted.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_ImageFileDialog::existingNameIsTakenAfterYes_data()
{
    nameIsTakenAsItStands_data();
}

void tst_ImageFileDialog::existingNameIsTakenAfterYes()
{
    QFETCH(const QString, name);
    const TemporaryHome home;
    const QString path = home.path() + u'/' + name;
    make_file(path);
    const ShownDialog dialog(home);
    const QSignalSpy accepted(&dialog, &QDialog::accepted);
    type_name(dialog, name);
    const NextBox box = answerNextBox(QMessageBox::Yes);

    press_accept(dialog);

    QCOMPARE(box.text(), QString("File '"_L1 + path + "' already exists.\nDo you want to replace it?"_L1));
    QCOMPARE(box.title(), u"Save"_s);
    QCOMPARE(box.textFormat(), Qt::PlainText);
    QCOMPARE(box.buttons(), QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.defaultButton(), QMessageBox::No);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog.selectedFile(), path);
}

void tst_ImageFileDialog::noLeavesTheDialogOpenForAnotherName()
{
    const TemporaryHome home;
    make_file(home.filePath(u"old.png"_s));
    const ShownDialog dialog(home);
    const QSignalSpy accepted(&dialog, &QDialog::accepted);
    type_name(dialog, u"old.png"_s);
    const NextBox box = answerNextBox(QMessageBox::No);
    press_accept(dialog);
    QCOMPARE(accepted.count(), 0);
    QVERIFY(dialog.isVisible());

    type_name(dialog, u"new.png"_s);
    press_accept(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog.selectedFile(), home.filePath(u"new.png"_s));
}

void tst_ImageFileDialog::directoryIsEnteredWithoutAQuestion_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isTyped");
    QTest::newRow("typed") << u"scans"_s << true;
    QTest::newRow("marked") << u"scans"_s << false;
    QTest::newRow("typed, in quotation marks") << u"my \"scans\""_s << true;
    QTest::newRow("marked, in quotation marks") << u"my \"scans\""_s << false;
}

void tst_ImageFileDialog::directoryIsEnteredWithoutAQuestion()
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
        mark_row(dialog, 0, 1);

    press_accept(dialog);

    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.directory().path(), home.filePath(name));
}

void tst_ImageFileDialog::markedDirectoryIsEnteredThoughTheTypedNameIsThatOfAFile()
{
    const TemporaryHome home;
    QVERIFY(QDir(home.path()).mkdir(u"a scans"_s));
    make_file(home.filePath(u"old \".png"_s));
    const ShownDialog dialog(home);
    const NoBox noBox;
    type_name(dialog, u"old \".png"_s);
    mark_row(dialog, 0, 2);

    press_accept(dialog);

    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.directory().path(), home.filePath(u"a scans"_s));
}

void tst_ImageFileDialog::filterLeavesTheNameOfAMarkedDirectoryAlone_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing typed") << QString() << QString();
    QTest::newRow("typed name counts") << u"report"_s << u"report.jpg"_s;
}

void tst_ImageFileDialog::filterLeavesTheNameOfAMarkedDirectoryAlone()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, name);
    const TemporaryHome home;
    QVERIFY(QDir(home.path()).mkdir(u"scans"_s));
    const ShownDialog dialog(home);
    type_name(dialog, typed);
    mark_row(dialog, 0, 1);

    choose_filter(dialog, jpegFilter);

    QCOMPARE(name_in(dialog), name);
    QCOMPARE(dialog.directory().path(), home.path());
}

void tst_ImageFileDialog::filterOfAllFilesListsNamesWithoutADotToo()
{
    const TemporaryHome home;
    make_file(home.filePath(u"README"_s));
    make_file(home.filePath(u"scan.png"_s));
    const ShownDialog dialog(home, QFileDialog::AcceptOpen);
    const auto *rows = dialog.findChild<QListView *>("listView"_L1);
    const auto count = [rows] { return rows->model()->rowCount(rows->rootIndex()); };
    QTRY_COMPARE(count(), 1);

    choose_filter(dialog, allFilter);
    QTRY_COMPARE(count(), 2);

    choose_filter(dialog, pngFilter);
    QTRY_COMPARE(count(), 1);
}

void tst_ImageFileDialog::existingFileWantedRaisesNoQuestion()
{
    const TemporaryHome home;
    make_file(home.filePath(u"old.png"_s));
    const ShownDialog dialog(home, QFileDialog::AcceptOpen);
    const QSignalSpy accepted(&dialog, &QDialog::accepted);
    type_name(dialog, u"old.png"_s);

    press_accept(dialog);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(dialog.selectedFile(), home.filePath(u"old.png"_s));
}

QTEST_MAIN(tst_ImageFileDialog)
#include "tst_ImageFileDialog.moc"

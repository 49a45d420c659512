// What the filters of a file dialog do to its list and to the name.

#include "dialog_data.h"
#include "NextBox.h"
#include "ShownDialog.h"

#include <QChildEvent>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

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

class tst_ImageFileDialog_filters : public QObject
{
    Q_OBJECT

private slots:
    void filtersStandInTheOrderOfTheFormats()
    {
        const TemporaryHome home;
        ImageFileDialog dialog(nullptr);

        dialog.setFormats(three_formats());

        QCOMPARE(dialog.nameFilters(), QStringList({pngFilter, jpegFilter, allFilter}));
        QVERIFY(dialog.testOption(QFileDialog::DontUseNativeDialog));
    }

    void filterLeadsBackToItsFormatAndOtherTextToNone()
    {
        const TemporaryHome home;
        ImageFileDialog dialog(nullptr);

        dialog.setFormats(three_formats());

        QCOMPARE(dialog.formatForFilter(jpegFilter), three_formats().at(1));
        QCOMPARE(dialog.formatForFilter(u"PNG"_s), ImageFormat());
    }

    void ofEqualFiltersTheLastFormatCounts()
    {
        const TemporaryHome home;
        ImageFileDialog dialog(nullptr);
        dialog.setFormats(three_formats());

        dialog.setFormats({{u"jpg"_s, u"JPEG"_s, {u"jpg"_s, u"jpeg"_s}}});

        QCOMPARE(dialog.formatForFilter(jpegFilter).format, u"jpg"_s);
        QCOMPARE(dialog.nameFilters(), QStringList(jpegFilter));
    }

    void filterGivesTheNameItsSuffix_data()
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
        QTest::newRow("all files") << u"report.png"_s << allFilter << u"report.*"_s;
        QTest::newRow("longest that gets it")
            << QString(251, u'a') << jpegFilter << QString(QString(251, u'a') + ".jpg"_L1);
        QTest::newRow("place marker") << u"page %1"_s << pngFilter << u"page %1.png"_s;
        QTest::newRow("ampersand and blanks") << u" Smith & Sons "_s << pngFilter << u" Smith & Sons .png"_s;
        QTest::newRow("quotation marks") << u"my \"scan\".jpg"_s << pngFilter << u"my \"scan\".png"_s;
        QTest::newRow("colon") << u"scan 10:30"_s << pngFilter << u"scan 10:30.png"_s;
        QTest::newRow("leading colon") << u":scan"_s << pngFilter << u":scan.png"_s;
        QTest::newRow("letters beyond ASCII") << u"Stra\u00dfe.jpg"_s << pngFilter << u"Stra\u00dfe.png"_s;
    }

    void filterGivesTheNameItsSuffix()
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

    void filterReplacesTheNameThoughTheFieldHasTheFocus()
    {
        const TemporaryHome home;
        ShownDialog dialog(home);
        type_name(dialog, u"report"_s);

        dialog.OnFilterSelected(jpegFilter);

        QVERIFY(dialog.findChild<QLineEdit *>("fileNameEdit"_L1)->hasFocus());
        QCOMPARE(name_in(dialog), u"report.jpg"_s);
    }

    void filterDropsTheDirectoryBeforeTheName()
    {
        const TemporaryHome home;
        const ShownDialog dialog(home);
        type_name(dialog, u"/usr/share/report.jpg"_s);

        choose_filter(dialog, pngFilter);

        QCOMPARE(name_in(dialog), u"report.png"_s);
        QCOMPARE(dialog.selectedFile(), home.filePath(u"report.png"_s));
    }

    void nameTooLongForItsSuffixIsLeftAlone_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("fits without the suffix") << QString(252, u'a');
        QTest::newRow("fits exactly without the suffix") << QString(255, u'a');
        QTest::newRow("of 255 letters and more bytes") << QString(255, u'\u00e9');
    }

    void nameTooLongForItsSuffixIsLeftAlone()
    {
        QFETCH(const QString, name);
        const TemporaryHome home;
        const ShownDialog dialog(home);
        type_name(dialog, name);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        choose_filter(dialog, jpegFilter);

        QCOMPARE(box.text(), u"Can't append '.jpg' extension, file name is too long."_s);
        QCOMPARE(box.title(), QString());
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        QCOMPARE(name_in(dialog), name);
    }

    void fieldOfTheOldNameLimitsTheLength()
    {
        const TemporaryHome home;
        const FieldGiver giver(u"name/filter editor"_s, 10);
        const ShownDialog dialog(home);
        type_name(dialog, u"abcdef"_s);
        choose_filter(dialog, jpegFilter);
        QCOMPARE(name_in(dialog), u"abcdef.jpg"_s);
        type_name(dialog, u"abcdefg"_s);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        choose_filter(dialog, pngFilter);

        QCOMPARE(name_in(dialog), u"abcdefg"_s);
    }

    void filterLeavesTheNameOfAMarkedDirectoryAlone_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("name");
        QTest::newRow("nothing typed") << QString() << QString();
        QTest::newRow("typed name counts") << u"report"_s << u"report.jpg"_s;
    }

    void filterLeavesTheNameOfAMarkedDirectoryAlone()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, name);
        const TemporaryHome home;
        QVERIFY(QDir(home.path()).mkdir(u"scans"_s));
        const ShownDialog dialog(home);
        type_name(dialog, typed);
        mark_row(dialog, u"scans"_s);

        choose_filter(dialog, jpegFilter);

        QCOMPARE(name_in(dialog), name);
        QCOMPARE(dialog.directory().path(), home.path());
    }

    void filterOfAllFilesListsNamesWithoutADotToo()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"README"_s), {});
        write_file(home.filePath(u"scan.png"_s), {});
        const ShownDialog dialog(home, QFileDialog::AcceptOpen);
        const auto *rows = dialog.findChild<QListView *>("listView"_L1);
        const auto count = [rows] { return rows->model()->rowCount(rows->rootIndex()); };
        QTRY_COMPARE(count(), 1);

        choose_filter(dialog, allFilter);
        QTRY_COMPARE(count(), 2);

        choose_filter(dialog, pngFilter);
        QTRY_COMPARE(count(), 1);
    }
};

QTEST_MAIN(tst_ImageFileDialog_filters)
#include "tst_ImageFileDialog_filters.moc"

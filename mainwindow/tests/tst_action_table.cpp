#include "action_table.h"

#include <QAction>
#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

#include <set>

using namespace Qt::StringLiterals;

namespace {

/// Puts every text of the table into angle brackets.
class BracketTranslator : public QTranslator
{
public:
    [[nodiscard]] QString translate(const char *context, const char *text, const char * /*hint*/,
                                    int /*n*/) const override
    {
        return qstrcmp(context, "Global String Table") == 0 ? u"<%1>"_s.arg(QString::fromUtf8(text)) : QString();
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

constexpr std::array<const char *, 46> Names = {"file_new",          "file_open",
                                                "file_save",         "file_save_as",
                                                "file_save_all",     "file_print",
                                                "file_close",        "file_close_all",
                                                "file_exit",         "view_labels",
                                                "view_big_pixmaps",  "view_tooltips",
                                                "view_movable",      "view_save",
                                                "view_reset",        "edit_undo",
                                                "edit_redo",         "view_scroll",
                                                "view_zoom_out",     "view_zoom_in",
                                                "scale_menu",        "scale_horizontally",
                                                "scale_vertically",  "scale_proportionally",
                                                "image_resize",      "rotate_menu",
                                                "rotate_ccw",        "rotate_cw",
                                                "rotate_180",        "flip_menu",
                                                "flip_horizontally", "flip_vertically",
                                                "image_invert",      "image_brightness",
                                                "image_contrast",    "depth_menu",
                                                "depth_1",           "depth_8",
                                                "depth_32",          "image_crop",
                                                "image_properties",  "tool_graphics_editor",
                                                "tool_ocr",          "tool_send",
                                                "tool_upload",       "tool_configure"};

const ActionRecord &record_of(const char *name)
{
    const ActionRecord *const record = action_record(QLatin1StringView(name));
    if (!record)
        qFatal("no row for %s", name);
    return *record;
}

} // namespace

class tst_action_table : public QObject
{
    Q_OBJECT

private slots:
    void everyCommandHasARow()
    {
        for (const char *const name : Names)
            QVERIFY2(action_record(QLatin1StringView(name)), name);
        QVERIFY(!action_record("effects_menu"_L1));
        QVERIFY(!action_record(""_L1));
    }

    void aRowHoldsItsTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("menuText");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("shortcut");

        QTest::newRow("file_new") << u"New"_s << u"&New..."_s << u"Creates new empty image"_s << u"Ctrl+N"_s;
        QTest::newRow("file_open") << u"Open"_s << u"&Open..."_s << u"Opens an existing image file"_s << u"Ctrl+O"_s;
        QTest::newRow("file_print") << u"Print"_s << u"&Print"_s << u"Prints current image"_s << u"Ctrl+P"_s;
        QTest::newRow("edit_redo") << u"Redo"_s << u"R&edo"_s << u"Redoes last undone operation"_s << u"Ctrl+Y"_s;
        QTest::newRow("rotate_ccw") << u"90 degrees CCW"_s << u"9&0 degrees CCW"_s
                                    << u"Rotates the image to 90 degrees counter-clock-wise"_s << QString();
        QTest::newRow("flip_vertically") << u"Vertically"_s << u"&Vertically"_s
                                         << u"Flips the image vertically (\"mirror on the floor\")"_s << QString();
        QTest::newRow("image_crop") << u"Crop"_s << u"C&rop"_s << u"Creates a new image from the selection"_s
                                    << QString();
        QTest::newRow("tool_ocr") << u"OCR"_s << u"&OCR"_s
                                  << u"Starts external Optical Character Recognition (OCR) program"_s << QString();
        QTest::newRow("view_reset") << u"Reset Layout"_s << u"&Reset Layout"_s << u"Set default window layout"_s
                                    << QString();
    }

    void aRowHoldsItsTexts()
    {
        const ActionRecord &record = record_of(QTest::currentDataTag());

        QTEST(record.text, "text");
        QTEST(record.menuText, "menuText");
        QTEST(record.tip, "tip");
        QTEST(record.shortcut.toString(QKeySequence::PortableText), "shortcut");
    }

    void onlyCloseAllHasNoMnemonic()
    {
        QStringList without;
        for (const char *const name : Names)
            if (!record_of(name).menuText.contains('&'_L1))
                without.append(QLatin1StringView(name));

        QCOMPARE(without, QStringList{u"file_close_all"_s});
        QCOMPARE(record_of("file_close_all").menuText, u"Close All"_s);
    }

    void sixCommandsHaveAShortcutOfTheirOwn()
    {
        std::set<QString> shortcuts;
        for (const char *const name : Names)
            if (!record_of(name).shortcut.isEmpty())
                shortcuts.insert(record_of(name).shortcut.toString(QKeySequence::PortableText));

        QCOMPARE(shortcuts,
                 (std::set<QString>{u"Ctrl+N"_s, u"Ctrl+O"_s, u"Ctrl+P"_s, u"Ctrl+S"_s, u"Ctrl+Y"_s, u"Ctrl+Z"_s}));
    }

    void theZoomNamesRunFromTheLargestPictureToTheSmallest()
    {
        const auto names = zoom_names();

        QCOMPARE(QStringList(names.begin(), names.end()).join(' '_L1), u"8:1 4:1 2:1 1:1 1:2 1:4 1:8 1:16"_s);
    }

    void anActionShowsTheMenuTextAndExplainsItself()
    {
        QAction action;

        applyActionRecord(&action, record_of("file_open"));

        QCOMPARE(action.text(), u"&Open..."_s);
        QCOMPARE(action.statusTip(), u"Opens an existing image file"_s);
        QCOMPARE(action.shortcut(), QKeySequence(u"Ctrl+O"_s));
        QCOMPARE(action.whatsThis(), u"<p><b>Open</b></p><p>Opens an existing image file</p>"_s);
        QCOMPARE(action.toolTip(), u"Open"_s); // what the toolkit makes of the text
    }

    void thePictureFormNamesThePictureByTheText_data()
    {
        QTest::addColumn<QString>("name");

        for (const char *const name : {"file_save", "file_print", "edit_undo", "edit_redo", "tool_upload"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void thePictureFormNamesThePictureByTheText()
    {
        QFETCH(QString, name);
        const ActionRecord &record = record_of(name.toLatin1());
        QAction action;

        applyActionRecord(&action, record);

        QCOMPARE(action.whatsThis(),
                 u"<p><img source=\"%1\">&nbsp;&nbsp; <b> %1</b></p><p>%2</p>"_s.arg(record.text, record.tip));
    }

    void aFinishedWhatsThisTextStaysAsItIs()
    {
        ActionRecord record;
        record.whatsThisForm = u"<p>Zoom<p><p>Changes the image zoom.</p>"_s;
        QAction action;

        applyActionRecord(&action, record);

        QCOMPARE(action.whatsThis(), u"<p>Zoom<p><p>Changes the image zoom.</p>"_s);
    }

    void aCatalogueTranslatesTextAndTipButNeverTheWhatsThis()
    {
        BracketTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QAction action;

        applyActionRecord(&action, record_of("file_save"));
        QCoreApplication::removeTranslator(&translator);

        QCOMPARE(action.text(), u"<&Save>"_s);
        QCOMPARE(action.statusTip(), u"<Saves current image to disk file>"_s);
        QCOMPARE(action.whatsThis(),
                 u"<p><img source=\"Save\">&nbsp;&nbsp; <b> Save</b></p><p>Saves current image to disk file</p>"_s);
    }

    void twelveActionsHavePictures()
    {
        QStringList pairs;
        for (const IconRecord &record : icon_table())
            pairs.append(u"%1=%2"_s.arg(record.action, record.base));

        QCOMPARE(pairs.join(' '_L1),
                 u"file_save=Save edit_undo=Undo edit_redo=Redo view_scroll=Scroll image_crop=Crop "
                 "view_zoom_out=ZoomOut view_zoom_in=ZoomIn image_properties=Properties scale_menu=Resize "
                 "rotate_menu=Rotate flip_menu=Flip effects_menu=Effects"_s);
        for (const IconRecord &record : icon_table())
            for (const QLatin1StringView form : {"_gray.png"_L1, "_disable.png"_L1, "_color.png"_L1})
                QCOMPARE(embeddedPixmap(record.base + form).size(), QSize(24, 24));
    }

    void anUnknownPictureIsANullPixmap()
    {
        QVERIFY(embeddedPixmap(u"Nothing_gray.png"_s).isNull());
        QVERIFY(embeddedPixmap(QString()).isNull());
    }

    void eachModeOfAnIconHasItsPicture_data()
    {
        QTest::addColumn<QIcon::Mode>("mode");
        QTest::addColumn<QColor>("color");

        QTest::newRow("under the pointer") << QIcon::Active << QColor(Qt::red);
        QTest::newRow("at rest") << QIcon::Normal << QColor(Qt::darkGray);
        QTest::newRow("switched off") << QIcon::Disabled << QColor(Qt::white);
    }

    void eachModeOfAnIconHasItsPicture()
    {
        QFETCH(QIcon::Mode, mode);
        QPixmap color(24, 24), gray(24, 24), disable(24, 24);
        color.fill(Qt::red);
        gray.fill(Qt::darkGray);
        disable.fill(Qt::white);
        QAction action;

        applyIconRecord(&action, color, gray, disable);

        for (const QIcon::State state : {QIcon::Off, QIcon::On})
            QTEST(action.icon().pixmap(QSize(24, 24), mode, state).toImage().pixelColor(12, 12), "color");
    }

    void aMissingPictureLeavesItsModeWithout()
    {
        QPixmap gray(24, 24);
        gray.fill(Qt::darkGray);
        const QPixmap missing = embeddedPixmap(u"no_such_picture"_s);
        QAction action;

        applyIconRecord(&action, missing, gray, missing);
        QCOMPARE(action.icon().availableSizes(QIcon::Normal), QList<QSize>{QSize(24, 24)});
        QCOMPARE(action.icon().pixmap(QSize(24, 24), QIcon::Active).toImage().pixelColor(12, 12), QColor(Qt::darkGray));

        QAction bare;
        applyIconRecord(&bare, missing, missing, missing);
        QVERIFY(bare.icon().isNull());
    }
};

QTEST_MAIN(tst_action_table)
#include "tst_action_table.moc"

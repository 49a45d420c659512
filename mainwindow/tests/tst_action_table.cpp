#include "action_records.h"
#include "action_table.h"
#include "described_actions.h"

#include <QAction>
#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

#include <algorithm>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(described::Action)

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

ActionRecord record_of(QLatin1StringView name)
{
    const auto row = std::ranges::find(action_table(), name, &ActionRow::name);
    if (row == action_table().end() || !row->texts.text)
        qFatal("no texts for %s", name.data());
    return action_record(row->texts);
}

} // namespace

class tst_action_table : public QObject
{
    Q_OBJECT

private slots:
    void theTableHoldsTheDescribedRowsTheEffectsAndTheZoomSteps()
    {
        QStringList names{u"effects_menu"_s, u"zoom_steps"_s};
        for (const described::Action &action : described::Actions)
            names.append(action.name);
        QStringList inTable;
        for (const ActionRow &row : action_table())
            inTable.append(row.name);

        names.sort();
        inTable.sort();
        QCOMPARE(inTable, names);
    }

    void everyRowHoldsItsTexts_data()
    {
        QTest::addColumn<described::Action>("action");
        for (const described::Action &action : described::Actions)
            QTest::newRow(action.name.data()) << action;
    }

    void everyRowHoldsItsTexts()
    {
        QFETCH(const described::Action, action);
        const ActionRecord record = record_of(action.name);

        QCOMPARE(record.text, action.text);
        QCOMPARE(record.menuText, action.menuText);
        QCOMPARE(record.tip, action.tip);
        QCOMPARE(record.shortcut.toString(QKeySequence::PortableText), action.shortcut);
        QCOMPARE(record.whatsThisForm,
                 action.showsPicture ? u"<p><img source=\"%1\">&nbsp;&nbsp; <b> %2</b></p><p>%3</p>"_s
                                     : u"<p><b>%1</b></p><p>%2</p>"_s);
    }

    void theZoomNamesRunFromTheLargestPictureToTheSmallest()
    {
        const auto names = zoom_names();

        QCOMPARE(QStringList(names.begin(), names.end()).join(' '_L1), u"8:1 4:1 2:1 1:1 1:2 1:4 1:8 1:16"_s);
    }

    void anActionShowsTheMenuTextAndExplainsItself()
    {
        QAction action;

        applyActionRecord(&action, record_of("file_open"_L1));

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
        const ActionRecord record = record_of(QLatin1StringView(name.toLatin1()));
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

        applyActionRecord(&action, record_of("file_save"_L1));
        QCoreApplication::removeTranslator(&translator);

        QCOMPARE(action.text(), u"<&Save>"_s);
        QCOMPARE(action.statusTip(), u"<Saves current image to disk file>"_s);
        QCOMPARE(action.whatsThis(),
                 u"<p><img source=\"Save\">&nbsp;&nbsp; <b> Save</b></p><p>Saves current image to disk file</p>"_s);
    }

    void theThreePicturesOfAnActionAreNamedByTheirBase()
    {
        const IconRecord icon = icon_record("Save"_L1);

        QCOMPARE(icon.gray, u"Save_gray.png"_s);
        QCOMPARE(icon.disable, u"Save_disable.png"_s);
        QCOMPARE(icon.color, u"Save_color.png"_s);
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

#include "TemporaryHome.h"
#include "ToolSettings.h"

#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

using Reader = QString (*)();
using Writer = bool (*)(const QString &);

class tst_ToolSettings : public QObject
{
    Q_OBJECT

private slots:
    void whatWasNeverStoredReadsAsItsDefault_data() { settings(); }
    void whatWasNeverStoredReadsAsItsDefault()
    {
        QFETCH(const Reader, read);
        QFETCH(const QString, fallback);
        const TemporaryHome home;

        QCOMPARE(read(), fallback);
    }

    void readingStoresNothing_data() { settings(); }
    void readingStoresNothing()
    {
        QFETCH(const Reader, read);
        const TemporaryHome home;

        (void)read();

        QCOMPARE(QSettings().allKeys(), QStringList());
    }

    void whatIsStoredLiesUnderItsKeyAndIsReadAgain_data() { settings(); }
    void whatIsStoredLiesUnderItsKeyAndIsReadAgain()
    {
        QFETCH(const Reader, read);
        QFETCH(const Writer, write);
        QFETCH(const QString, key);
        const TemporaryHome home;

        QVERIFY(write(u"~/a, \"b\" %1 \\ größe"_s));

        QCOMPARE(read(), u"~/a, \"b\" %1 \\ größe"_s);
        QCOMPARE(QSettings().allKeys(), QStringList{key});
        QCOMPARE(QSettings().value(key).toString(), u"~/a, \"b\" %1 \\ größe"_s);
    }

    void whatIsStoredEmptyStaysEmpty_data() { settings(); }
    void whatIsStoredEmptyStaysEmpty()
    {
        QFETCH(const Reader, read);
        QFETCH(const Writer, write);
        const TemporaryHome home;

        QVERIFY(write(QString(u""_s)));

        QCOMPARE(read(), QString());
    }

    void placeholdersAndFormatsAreThoseOfTheFields()
    {
        QCOMPARE(ToolSettings::GraphicsEditorFormat, u"BMP"_s);
        QCOMPARE(ToolSettings::OcrFormat, u"PBM"_s);
        QCOMPARE(ToolSettings::GraphicsEditorPlaceholder, u"<BMP>"_s);
        QCOMPARE(ToolSettings::OcrInputPlaceholder, u"<PBM>"_s);
        QCOMPARE(ToolSettings::OcrOutputPlaceholder, u"<TXT>"_s);
    }

private:
    static void settings();
};

void tst_ToolSettings::settings()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Reader>("read");
    QTest::addColumn<Writer>("write");
    QTest::addColumn<QString>("fallback");

    const auto row = [](const char *key, Reader read, Writer write, const QString &fallback) {
        QTest::newRow(key) << "scfgtools/"_L1 + QLatin1StringView(key) << read << write << fallback;
    };
    row("graphics_editor", ToolSettings::graphics_editor, ToolSettings::set_graphics_editor, u"gimp <BMP>"_s);
    row("graphics_editor_input", ToolSettings::graphics_editor_input, ToolSettings::set_graphics_editor_input,
        u"~/gimp_input.bmp"_s);
    row("OCR", ToolSettings::OCR, ToolSettings::set_OCR, u"gocr -i <PBM> -o <TXT>"_s);
    row("OCR_input", ToolSettings::OCR_input, ToolSettings::set_OCR_input, u"~/ocr_input.pbm"_s);
    row("OCR_output", ToolSettings::OCR_output, ToolSettings::set_OCR_output, u"~/recognized.txt"_s);
    row("text_editor", ToolSettings::text_editor, ToolSettings::set_text_editor, u"kwrite <TXT>"_s);
}

QTEST_GUILESS_MAIN(tst_ToolSettings)
#include "tst_ToolSettings.moc"

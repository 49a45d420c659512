#include "files.h"
#include "ImageManagerProgram.h"
#include "pictures.h"
#include "ToolPlace.h"

#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <csignal>

#include <unistd.h>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

/// Pages leave the program for others: by the menu, by the keyboard, with real programs at the other end.
class tst_tools : public QObject
{
    Q_OBJECT

private slots:
    void printSendsThePageToLpr_data();
    void printSendsThePageToLpr();
    void lprHasNothingOfOursOpen();
    void lprThatIsNotThereCostsThePrintAndLeavesNoFile();
    void lprThatFailsLeavesNoFileAndTheNextPrintGoes();
    void jobThatOutlivesTheProgramKeepsItsFileAsLongAsItRuns_data();
    void jobThatOutlivesTheProgramKeepsItsFileAsLongAsItRuns();
    void toolsMenuOfTheMachinesSettingsIsOnTheBar();
    void graphicsEditorGetsThePage();
    void recogniserFindsTheWordsOfThePage();
};

namespace {

/// Opens a menu of the bar and clicks on one of its entries.
bool choose(ImageManagerProgram &program, const QString &menuName, const QString &entry)
{
    const Accessible menu = program.application().find(Role::MenuBar).find(Role::MenuItem, menuName);
    program.desktop().click(menu.extents().center());
    if (!QTest::qWaitFor([&] { return program.menuEntry(menuName, entry).has(State::Showing); }, Program::patienceMs))
        return false;
    program.desktop().click(program.menuEntry(menuName, entry).extents().center());
    return true;
}

/// Settings that put the tools on the bar, with commands of the test.
QByteArray settings(const QByteArray &editor, const QByteArray &recogniser, const QByteArray &textEditor)
{
    return "[image_editor]\ntools_menu=true\n[scfgtools]\ngraphics_editor=" + editor + "\nOCR=" + recogniser
        + "\ntext_editor=" + textEditor + "\n";
}

constexpr QSize roomy{1100, 700};

/// Of a page whose print files no other process of the machine has.
QSize own_size()
{
    const auto process = static_cast<int>(::getpid());
    return {100 + process % 1000, 100 + process / 1000 % 1000};
}

/// The print files with a page of this size.
QStringList print_files(QSize size)
{
    QStringList found;
    const QFileInfoList files = QDir(u"/tmp"_s).entryInfoList({u"file??????.png"_s}, QDir::Files);
    for (const QFileInfo &file : files) {
        if (QImageReader(file.filePath()).size() == size)
            found.append(file.filePath());
    }
    return found;
}

} // namespace

void tst_tools::printSendsThePageToLpr_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Ctrl+P") << true;
    QTest::newRow("menu") << false;
}

void tst_tools::printSendsThePageToLpr()
{
    QFETCH(const bool, byKey);
    const ToolPlace place;
    ImageManagerProgram program(place);
    find_lpr_in(program, place);
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));

    if (byKey)
        program.desktop().pressKey("p", {"Control_L"});
    else
        QVERIFY(choose(program, u"File"_s, u"Print"_s));

    QTRY_VERIFY_WITH_TIMEOUT(place.has(u"open"_s), Program::patienceMs);
    QCOMPARE(QImage(place.inHome(u"printed.png"_s)).convertToFormat(QImage::Format_RGB32),
             patterned_page({100, 80}).convertToFormat(QImage::Format_RGB32));
    QVERIFY(place.bytes(u"words"_s).startsWith("1 /tmp/file"));
    QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(place.printFile()), Program::patienceMs);
    QCOMPARE(program.statusText(), u"Printing..."_s);
    QCOMPARE(program.close(), 0);
}

void tst_tools::lprHasNothingOfOursOpen()
{
    const ToolPlace place;
    ImageManagerProgram program(place);
    find_lpr_in(program, place);
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));

    program.desktop().pressKey("p", {"Control_L"});

    QTRY_VERIFY_WITH_TIMEOUT(place.has(u"open"_s), Program::patienceMs);
    const QByteArray open = place.bytes(u"open"_s);
    static const QRegularExpression others(u" -> (socket|anon_inode|pipe|/memfd|.*\\.png)"_s);
    QVERIFY2(!others.match(QString::fromUtf8(open)).hasMatch(), open.constData());
    QVERIFY2(open.contains("SigIgn:\t0000000000000000"), open.constData());
    QCOMPARE(program.close(), 0);
}

void tst_tools::lprThatIsNotThereCostsThePrintAndLeavesNoFile()
{
    const ToolPlace place;
    QVERIFY(QFile::remove(place.inHome(u"lpr"_s)));
    ImageManagerProgram program(place);
    program.process().setEnvironment(u"PATH"_s, place.home());
    QVERIFY(program.open({place.page(u"a.png"_s, own_size())}, roomy));

    program.desktop().pressKey("p", {"Control_L"});

    QTRY_COMPARE_WITH_TIMEOUT(program.statusText(), u"Printing..."_s, Program::patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(print_files(own_size()).size(), 1, Program::patienceMs);
    program.desktop().pressKey("p", {"Control_L"}); // the job is still under way
    QVERIFY(program.invert());
    QCOMPARE(print_files(own_size()).size(), 1);
    ::kill(static_cast<pid_t>(program.process().processId()), SIGTERM);
    QCOMPARE(program.process().waitForEndBySignal(), SIGTERM);
    QTRY_COMPARE_WITH_TIMEOUT(print_files(own_size()), QStringList(), Program::patienceMs);
}

void tst_tools::lprThatFailsLeavesNoFileAndTheNextPrintGoes()
{
    const ToolPlace place;
    write_program(place.inHome(u"lpr"_s),
                  "#!/bin/sh\necho >>'" + QFile::encodeName(place.home()) + "/tries'\nexit 1\n");
    ImageManagerProgram program(place);
    find_lpr_in(program, place);
    QVERIFY(program.open({place.page(u"a.png"_s, own_size())}, roomy));

    for (int tries = 1; tries <= 2; ++tries) {
        program.desktop().pressKey("p", {"Control_L"});
        QTRY_COMPARE_WITH_TIMEOUT(file_bytes_if_any(place.inHome(u"tries"_s)).size(), tries, Program::patienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(print_files(own_size()), QStringList(), Program::patienceMs);
    }

    QCOMPARE(program.tabTitles(), QStringList{u"a.png"_s}); // no box, and nothing changed
    QCOMPARE(program.close(), 0);
}

void tst_tools::jobThatOutlivesTheProgramKeepsItsFileAsLongAsItRuns_data()
{
    QTest::addColumn<bool>("killed");
    QTest::newRow("window closed") << false;
    QTest::newRow("program killed") << true;
}

void tst_tools::jobThatOutlivesTheProgramKeepsItsFileAsLongAsItRuns()
{
    QFETCH(const bool, killed);
    const ToolPlace place;
    place.write(u"hold"_s, {});
    ImageManagerProgram program(place);
    find_lpr_in(program, place);
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));
    program.desktop().pressKey("p", {"Control_L"});
    QTRY_VERIFY_WITH_TIMEOUT(place.has(u"open"_s), Program::patienceMs);

    if (killed) {
        ::kill(static_cast<pid_t>(program.process().processId()), SIGKILL);
        (void)program.process().waitForExit();
        QVERIFY(!program.process().isRunning());
    } else {
        QCOMPARE(program.close(), 0);
    }

    QCOMPARE(QImage(place.printFile()), QImage(place.inHome(u"printed.png"_s)));
    QVERIFY(QFile::remove(place.inHome(u"hold"_s)));
    QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(place.printFile()), Program::patienceMs);
}

void tst_tools::toolsMenuOfTheMachinesSettingsIsOnTheBar()
{
    const ToolPlace place;
    place.write(u"machine/Unknown Organization/imagemanager.conf"_s, "[image_editor]\ntools_menu=true\n");
    ImageManagerProgram program(place);
    program.process().setEnvironment(u"XDG_CONFIG_DIRS"_s, place.inHome(u"machine"_s));
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));

    QCOMPARE(program.menuEntries(u"Tools"_s),
             (QStringList{u"Graphics Editor"_s, u"OCR"_s, u"Send by E-mail..."_s, u"Upload by FTP..."_s,
                          u"Configure Tools..."_s}));
    QCOMPARE(program.close(), 0);
}

void tst_tools::graphicsEditorGetsThePage()
{
    const ToolPlace place;
    // By its full name, as other programs are called "convert" too.
    place.write(u".config/Unknown Organization/imagemanager.conf"_s,
                settings("convert-im6.q16 <BMP> ~/new.png && mv ~/new.png ~/edited.png", "true", "true"));
    ImageManagerProgram program(place);
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));

    QVERIFY(choose(program, u"Tools"_s, u"Graphics Editor"_s));

    QTRY_VERIFY_WITH_TIMEOUT(place.has(u"edited.png"_s), Program::patienceMs);
    QImage edited(place.inHome(u"edited.png"_s));
    edited.setColorSpace({}); // the editor names one
    QCOMPARE(edited.convertToFormat(QImage::Format_RGB32),
             patterned_page({100, 80}).convertToFormat(QImage::Format_RGB32));
    QVERIFY(place.has(u"gimp_input.bmp"_s));
    QCOMPARE(program.close(), 0);
}

void tst_tools::recogniserFindsTheWordsOfThePage()
{
    const ToolPlace place;
    place.write(u".config/Unknown Organization/imagemanager.conf"_s,
                settings("true", "gocr -i <PBM> -o <TXT>", "cp <TXT> ~/new && mv ~/new ~/read.txt"));
    // Drawn by a program that has the letters, black on white.
    const QString page = place.path(u"text.png"_s);
    QCOMPARE(QProcess::execute(u"convert-im6.q16"_s,
                               {u"-size"_s, u"900x200"_s, u"xc:white"_s, u"-font"_s, u"DejaVu-Sans"_s, u"-pointsize"_s,
                                u"48"_s, u"-fill"_s, u"black"_s, u"-annotate"_s, u"+40+110"_s,
                                u"Scanned letters become words"_s, page}),
             0);
    ImageManagerProgram program(place);
    QVERIFY(program.open({page}, roomy));

    QVERIFY(choose(program, u"Tools"_s, u"OCR"_s));

    QTRY_VERIFY_WITH_TIMEOUT(place.has(u"read.txt"_s), Program::patienceMs);
    const QByteArray text = place.bytes(u"read.txt"_s).simplified();
    for (const char *const word : {"Scanned", "letters", "become", "words"})
        QVERIFY2(text.contains(word), text.constData());
    QCOMPARE(program.close(), 0);
}

QTEST_GUILESS_MAIN(tst_tools)
#include "tst_tools.moc"

#include "files.h"
#include "ImageManagerProgram.h"
#include "pictures.h"
#include "SingleInstanceTest.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

/// What the program finds around it is not as it should be: its home, its settings, the record of its package.
class tst_surroundings : public QObject
{
    Q_OBJECT

private slots:
    void homeThatIsNotThereCostsTheWayBackAlone();
    void homeThatCannotBeWrittenToCostsTheWayBackAlone();
    void randomSettingsStopNoStart();
    void randomRecordOfThePackageStopsNoStart();
};

namespace {

QByteArray random_bytes(qsizetype count)
{
    QByteArray bytes(count, '\0');
    QRandomGenerator random(3);
    for (char &byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

/// Inverts the page, gives the box that comes this answer, saves, and closes the window.
/// @param[out] box  what has come
void edit_and_save(ImageManagerProgram &program, const QString &button, MessageBox &box)
{
    const QString name = program.currentTab();
    QVERIFY(program.askToInvert() && program.agreeToInvert());
    box = program.answer(button);
    QTRY_COMPARE_WITH_TIMEOUT(program.currentTab(), name + u'*', Program::patienceMs);
    QTRY_COMPARE(program.desktop().activeWindow(), program.window());
    program.desktop().pressKey("s", {"Control_L"});
    QTRY_COMPARE_WITH_TIMEOUT(program.currentTab(), name, Program::patienceMs);
    QCOMPARE(program.close(), 0);
}

QImage inverted_page()
{
    QImage page = patterned_page({100, 80});
    page.invertPixels();
    return page;
}

bool is_saved(const QString &path)
{
    return compare_pictures(QImage(path).convertToFormat(QImage::Format_RGB32), inverted_page());
}

} // namespace

void tst_surroundings::homeThatIsNotThereCostsTheWayBackAlone()
{
    const Place place;
    const QString path = place.page(u"a.bmp"_s);
    ImageManagerProgram program(place);
    program.process().setHome(place.path(u"nowhere"_s));
    QVERIFY(program.open({path}));

    MessageBox box;
    edit_and_save(program, u"Yes"_s, box); // it cannot be told how much room there is

    QCOMPARE(box.title, u"Warning"_s);
    QCOMPARE(box.buttons.size(), 2);
    QVERIFY(is_saved(path));
}

void tst_surroundings::homeThatCannotBeWrittenToCostsTheWayBackAlone()
{
    const Place place;
    const QString path = place.page(u"a.bmp"_s);
    QVERIFY(QFile::setPermissions(place.home(), QFile::ReadOwner | QFile::ExeOwner));
    ImageManagerProgram program(place);
    program.process().obeyFilePermissions();
    QVERIFY(program.open({path}));

    MessageBox box;
    edit_and_save(program, u"OK"_s, box);

    QCOMPARE(box.text, u"Error saving Undo/Redo information"_s);
    QVERIFY(is_saved(path));
    QCOMPARE(QDir(place.home()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
    QVERIFY(QFile::setPermissions(place.home(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void tst_surroundings::randomSettingsStopNoStart()
{
    const Place place;
    place.writeSettings("image_editor_width=" + random_bytes(1 << 20));
    ImageManagerProgram program(place);

    QVERIFY(program.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(program.tabTitles(), QStringList{u"a.bmp"_s});
    QCOMPARE(program.close(), 0);
}

void tst_surroundings::randomRecordOfThePackageStopsNoStart()
{
    const Place place;
    ImageManagerProgram program(place, linked_program(place));
    program.process().setWorkingDirectory(place.home());
    write_file(place.path(u"package/share/OEM.ini"_s), "VENDOR=" + random_bytes(1 << 20));

    QVERIFY(program.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(program.tabTitles(), QStringList{u"a.bmp"_s});
    QCOMPARE(program.close(), 0);
}

QTEST_GUILESS_MAIN(tst_surroundings)
#include "tst_surroundings.moc"

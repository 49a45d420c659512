#include "files.h"
#include "ToolPlace.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

/// Somebody else of the machine waits for a file of the program with a link of the same name.
class tst_planted_links : public QObject
{
    Q_OBJECT

private slots:
    void linkInPlaceOfThePrintFileIsLeftAlone_data();
    void linkInPlaceOfThePrintFileIsLeftAlone();
};

namespace {

/// A link to @p target among the files that are printed, gone with the object.
class PlantedLink
{
public:
    explicit PlantedLink(QString target_) : target(std::move(target_)) { }
    ~PlantedLink() { QFile::remove(path()); }
    Q_DISABLE_COPY_MOVE(PlantedLink)

    /// Empty while there is none.
    [[nodiscard]] QString path() const
    {
        const QFileInfoList files = QDir(u"/tmp"_s).entryInfoList({u"file??????.png"_s}, QDir::Files | QDir::System);
        for (const QFileInfo &file : files) {
            if (file.isSymbolicLink() && file.symLinkTarget() == target)
                return file.filePath();
        }
        return {};
    }

private:
    QString target;
};

} // namespace

void tst_planted_links::linkInPlaceOfThePrintFileIsLeftAlone_data()
{
    QTest::addColumn<bool>("hasTarget");

    QTest::newRow("link to a file") << true;
    QTest::newRow("link to nothing") << false;
}

void tst_planted_links::linkInPlaceOfThePrintFileIsLeftAlone()
{
    QFETCH(const bool, hasTarget);
    const ToolPlace place;
    const QString target = place.inHome(u"precious"_s);
    if (hasTarget)
        place.write(u"precious"_s, "all I have");
    const PlantedLink link(target);
    ImageManagerProgram program(place);
    find_lpr_in(program, place);
    program.process().setEnvironment(u"LD_PRELOAD"_s, QStringLiteral(IM_SHIM));
    program.process().setEnvironment(u"IM_PLANT_LINK"_s, target);
    QVERIFY(program.open({place.page(u"a.png"_s)}));
    QTRY_COMPARE_WITH_TIMEOUT(program.desktop().activeWindow(), program.window(), Program::patienceMs);

    program.desktop().pressKey("p", {"Control_L"});
    QTRY_VERIFY_WITH_TIMEOUT(!link.path().isEmpty(), Program::patienceMs);
    program.desktop().pressKey("p", {"Control_L"}); // the first one printed nothing

    QTRY_VERIFY_WITH_TIMEOUT(place.has(u"open"_s), Program::patienceMs);
    QVERIFY(!link.path().isEmpty());
    QVERIFY(place.printFile() != link.path());
    QCOMPARE(place.has(u"precious"_s), hasTarget);
    QCOMPARE(place.bytes(u"precious"_s), hasTarget ? "all I have"_ba : QByteArray());
    QCOMPARE(program.close(), 0);
}

QTEST_GUILESS_MAIN(tst_planted_links)
#include "tst_planted_links.moc"

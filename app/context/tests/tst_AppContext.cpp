#include "AppContext.h"
#include "files.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cstring>
#include <string>
#include <type_traits>

using namespace Qt::StringLiterals;

// The record is shared with readers that know its layout.
static_assert(std::is_trivial_v<AppContext> && std::is_standard_layout_v<AppContext>);
static_assert(sizeof(AppContext::app_file_dir) == 4096 && sizeof(AppContext::package_dir) == 4096
              && sizeof(AppContext::share_dir) == 4096 && sizeof(AppContext::vendor) == 32
              && sizeof(AppContext::vendor_lc) == 32 && sizeof(AppContext::vendor_uc) == 32
              && sizeof(AppContext::url) == 256 && sizeof(AppContext::model) == 512
              && sizeof(AppContext::plugin) == 20480);

/// A package on disk, the current directory being another one.
class tst_AppContext : public QObject
{
    Q_OBJECT

private:
    void write(const QString &name, const QByteArray &text) const { write_file(m_root->filePath(name), text); }

    [[nodiscard]] QByteArray path(const QString &name) const { return QFile::encodeName(m_root->filePath(name)); }

    std::unique_ptr<QTemporaryDir> m_root;
    QString m_formerDirectory = QDir::currentPath();

private slots:
    void init()
    {
        actx = AppContext();
        m_root = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_root->path()).mkdir(u"here"_s));
        QVERIFY(QDir::setCurrent(m_root->filePath(u"here"_s)));
    }

    void cleanup() { QDir::setCurrent(m_formerDirectory); }

    void directoriesFollowFromThePathOfTheProgram()
    {
        QCOMPARE(find_installation("/nonexistent/pkg/bin/tool"), -1);

        QCOMPARE(actx.app_file_dir, "/nonexistent/pkg/bin");
        QCOMPARE(actx.package_dir, "/nonexistent/pkg");
        QCOMPARE(actx.share_dir, "/nonexistent/pkg/share");
    }

    void withoutAFileFlagsCountsAndTextsStayZero()
    {
        QCOMPARE(find_installation("/nonexistent/pkg/bin/tool"), -1);

        QCOMPARE(actx.vendor, "");
        QCOMPARE(actx.url, "");
        QCOMPARE(actx.model_count, 0);
        QCOMPARE(actx.plugin_count, 0);
        QCOMPARE(actx.multivendor, 0);
        QCOMPARE(actx.parport, 0);
        QCOMPARE(actx.portplugin, 0);
        QCOMPARE(actx.scanner, 0);
        QCOMPARE(actx.update_printer_group, 0);
    }

    void fileIsLookedForInThreePlacesAndReadFromTheFirst()
    {
        const QByteArray program = path(u"bin/tool"_s);
        write(u"here/OEM.ini"_s, "VENDOR=current\n");
        QCOMPARE(find_installation(program.constData()), 0);
        QCOMPARE(actx.vendor, "current");

        write(u"OEM.ini"_s, "VENDOR=package\n");
        QCOMPARE(find_installation(program.constData()), 0);
        QCOMPARE(actx.vendor, "package");

        write(u"share/OEM.ini"_s, "VENDOR=share\n");
        QCOMPARE(find_installation(program.constData()), 0);
        QCOMPARE(actx.vendor, "share");
    }

    void onlyTheFirstFileIsRead()
    {
        write(u"share/OEM.ini"_s, "VENDOR=share\n");
        write(u"OEM.ini"_s, "VENDOR=package\nURL=u\nMODEL=m\nSCANNER=0\n");

        QCOMPARE(find_installation(path(u"bin/tool"_s).constData()), 0);

        QCOMPARE(actx.vendor, "share");
        QCOMPARE(actx.url, "");
        QCOMPARE(actx.model_count, 0);
        QCOMPARE(actx.scanner, 1);
    }

    void emptyFileIsAFile()
    {
        write(u"share/OEM.ini"_s, {});

        QCOMPARE(find_installation(path(u"bin/tool"_s).constData()), 0);

        QCOMPARE(actx.multivendor, 0);
        QCOMPARE(actx.parport, 1);
        QCOMPARE(actx.portplugin, 1);
        QCOMPARE(actx.scanner, 1);
        QCOMPARE(actx.update_printer_group, 1);
    }

    void programOfTheSearchPathIsTakenForOneOfTheCurrentDirectory()
    {
        write(u"here/OEM.ini"_s, "VENDOR=current\n");

        QCOMPARE(find_installation("tool"), 0);

        QCOMPARE(QByteArray(actx.app_file_dir), path(u"here"_s));
        QCOMPARE(QByteArray(actx.package_dir), QFile::encodeName(m_root->path()));
        QCOMPARE(actx.vendor, "current");
    }

    void relativePathCountsFromTheCurrentDirectory()
    {
        write(u"here/pkg/share/OEM.ini"_s, "VENDOR=share\n");

        QCOMPARE(find_installation("./pkg/bin/tool"), 0);

        QCOMPARE(QByteArray(actx.app_file_dir), path(u"here/pkg/bin"_s));
        QCOMPARE(actx.vendor, "share");
    }

    void programNearTheRootHasEmptyDirectories()
    {
        QCOMPARE(find_installation("/bin/no-such-tool"), -1);
        QCOMPARE(actx.app_file_dir, "/bin");
        QCOMPARE(actx.package_dir, "");
        QCOMPARE(actx.share_dir, "/share");

        QCOMPARE(find_installation("/no-such-tool"), -1);
        QCOMPARE(actx.app_file_dir, "");
        QCOMPARE(actx.package_dir, "");
        QCOMPARE(actx.share_dir, "/share");
    }

    void pathWithoutAnyDirectoryStandsForAllThree()
    {
        QVERIFY(QDir::setCurrent(u"/"_s)); // "no-such-tool" gets no "/" there

        QCOMPARE(find_installation("no-such-tool"), -1);

        QCOMPARE(actx.app_file_dir, "no-such-tool");
        QCOMPARE(actx.package_dir, "no-such-tool");
        QCOMPARE(actx.share_dir, "no-such-tool/share");
    }

    void noProgramPathAtAllIsNoHarm()
    {
        QCOMPARE(find_installation(nullptr), -1);

        QCOMPARE(actx.app_file_dir, "");
        QCOMPARE(actx.share_dir, "/share");
    }

    void longPathsAreCutAndEnd()
    {
        const std::string directory = '/' + std::string(4092, 'd'); // no room for "/share" behind it

        QCOMPARE(find_installation((directory + "/b/tool").c_str()), -1);

        QCOMPARE(std::strlen(actx.app_file_dir), std::size_t{4093}); // of a path cut to 4095
        QCOMPARE(find_installation(('/' + std::string(5000, 'x')).c_str()), -1);
        QCOMPARE(actx.app_file_dir, "");
        QCOMPARE(find_installation(std::string(5000, 'x').c_str()), -1);
        QCOMPARE(QByteArray(actx.app_file_dir), path(u"here"_s));

        std::string nested;
        while (nested.size() < 5000)
            nested += "/ddd";
        QCOMPARE(find_installation(nested.c_str()), -1);
        QCOMPARE(std::strlen(actx.app_file_dir), std::size_t{4092});
        QCOMPARE(std::strlen(actx.package_dir), std::size_t{4088});
        QCOMPARE(std::strlen(actx.share_dir), std::size_t{4094});
    }

    void shareDirectoryThatDoesNotFitIsCut()
    {
        const std::string package = '/' + std::string(4089, 'd'); // 4090, with "/b/t" 4094

        QCOMPARE(find_installation((package + "/b/t").c_str()), -1);

        QCOMPARE(QByteArray(actx.package_dir), QByteArray::fromStdString(package));
        QCOMPARE(QByteArray(actx.share_dir), QByteArray::fromStdString(package + "/shar"));
    }

    void dumpShowsEveryField()
    {
        AppContext context = {};
        (void)qstrcpy(context.app_file_dir, "/p/bin");
        (void)qstrcpy(context.package_dir, "/p");
        (void)qstrcpy(context.share_dir, "/p/share");
        (void)qstrcpy(context.vendor, "Ab");
        (void)qstrcpy(context.vendor_lc, "ab");
        (void)qstrcpy(context.vendor_uc, "AB");
        (void)qstrcpy(context.url, "u");
        (void)qstrcpy(context.model[0], "m0");
        (void)qstrcpy(context.model[1], "m1");
        (void)qstrcpy(context.plugin[0], "p0");
        context.model_count = 2;
        context.plugin_count = 1;
        context.multivendor = 3;
        context.parport = 4;
        context.portplugin = 5;
        context.scanner = 6;
        context.update_printer_group = 7;

        const QByteArray text = dump_actx(&context);

        const qsizetype firstLine = text.indexOf('\n') + 1;
        QVERIFY(text.startsWith("0x"));
        QCOMPARE(text.mid(firstLine),
                 "app_file_dir=</p/bin>\npackage_dir=</p>\nshare_dir=</p/share>\nvendor=<Ab>\nvendor_lc=<ab>\n"
                 "vendor_uc=<AB>\nurl=<u>\nmodel=<m0>\nmodel_count=2\nplugin=<p0>\nplugin_count=1\n"
                 "multivendor=3\nparport=4\nportplugin=5\nscanner=6\nupdate_printer_group=7");
    }

    void dumpOfNothingSaysSo() { QCOMPARE(dump_actx(nullptr), "null"); }

    void longDumpIsCutTo1023Bytes()
    {
        AppContext context = {};
        std::memset(context.app_file_dir, 'x', sizeof context.app_file_dir - 1);

        QCOMPARE(std::strlen(dump_actx(&context)), std::size_t{1023});
    }
};

QTEST_APPLESS_MAIN(tst_AppContext)
#include "tst_AppContext.moc"

// Where a document may be saved, and where not.

#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "private_mounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <array>
#include <memory>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int LongestNameBytes = 255;

/// A name of so many bytes that ends in ".png".
QString name_of_bytes(int count)
{
    return QString(count - 4, u'n') + u".png"_s;
}

std::unique_ptr<ImageDocument> modified_document()
{
    auto document = std::make_unique<ImageDocument>(QString(), QString());
    if (!document->addPage(patterned_page({20, 10})))
        qFatal("the document refused the page");
    return document;
}

/// Saves as a user who may do no more than others, in a process of that user's own.
/// @return what save() left in lastError; nothing if it answered true
QString error_for_another_user(const QString &path, const QString &word)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        qFatal("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        if (!give_up_privileges())
            ::_exit(2);
        const auto document = modified_document();
        if (!document->save(path, word)) {
            const QByteArray text = document->lastError.toUtf8();
            [[maybe_unused]] const ssize_t written =
                ::write(ends[1], text.constData(), static_cast<size_t>(text.size()));
        }
        ::_exit(0);
    }
    ::close(ends[1]);
    ::waitpid(child, nullptr, 0);
    std::array<char, 1000> text{};
    const ssize_t count = ::read(ends[0], text.data(), text.size());
    ::close(ends[0]);
    return QString::fromUtf8(text.data(), count);
}

} // namespace

class tst_ImageDocument_save_places : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        directory.emplace();
        QVERIFY(directory->isValid());
        // Others may look in.
        QVERIFY(QFile::setPermissions(directory->path(), QFile::Permissions(0x7755)));
    }
    void cleanup() { directory.reset(); }

    void unusualNamesAreTakenAsTheyAre_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("the longest") << name_of_bytes(LongestNameBytes);
        QTest::newRow("the longest in letters of two bytes") << QString(125, u'ü') + u"n.png"_s;
        QTest::newRow("place holder") << u"%1 of %2 %n.png"_s;
        QTest::newRow("ampersands") << u"A & B && C.png"_s;
        QTest::newRow("blanks") << u"  a  b .png"_s;
        QTest::newRow("colons") << u":a:b:.png"_s;
        QTest::newRow("other letters") << u"Größe 写真 \U0001F5BC.png"_s;
        QTest::newRow("quotation marks") << u"a\"b'c`.png"_s;
        QTest::newRow("back slash and wild cards") << u"a\\b*c?[d].png"_s;
        QTest::newRow("line break") << u"a\nb.png"_s;
        QTest::newRow("dash first") << u"-rf.png"_s;
    }

    void unusualNamesAreTakenAsTheyAre()
    {
        QFETCH(const QString, name);
        for (const QString &word : {u"PNG"_s, u"TIFF"_s}) {
            const auto document = modified_document();

            QVERIFY2(document->save(path(name), word), qPrintable(document->lastError));

            QCOMPARE(QDir(directory->path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
            QCOMPARE(document->fileName(), name);
            QVERIFY(!document->isModified());
            const ImageDocument reloaded(path(name), word);
            QVERIFY(compare_pictures(reloaded.page(1), document->page(1)));
        }
    }

    void aNameThatIsTooLongIsRefused_data() { addWords(u"File name too long"_s); }
    void aNameThatIsTooLongIsRefused() { verifyRefused(path(name_of_bytes(LongestNameBytes + 1))); }

    void aDirectoryIsNoFile_data() { addWords(u"Is a directory"_s); }
    void aDirectoryIsNoFile() { verifyRefused(directory->path()); }

    void aReadOnlyFileIsRefusedAndStays_data() { addWords(u"Read-only file system"_s); }
    void aReadOnlyFileIsRefusedAndStays()
    {
        write_file(path(u"a"_s), "earlier");
        const ReadOnlyPlace place(path(u"a"_s));

        verifyRefused(path(u"a"_s));

        QCOMPARE(file_bytes(path(u"a"_s)), "earlier");
    }

    void aReadOnlyDirectoryIsRefused_data() { addWords(u"Read-only file system"_s); }
    void aReadOnlyDirectoryIsRefused()
    {
        const ReadOnlyPlace place(directory->path());

        verifyRefused(path(u"a"_s));

        QVERIFY(!QFile::exists(path(u"a"_s)));
    }

    void aFileWithoutPermissionIsRefusedAndStays_data() { addWords(u"Permission denied"_s); }
    void aFileWithoutPermissionIsRefusedAndStays()
    {
        QFETCH(const QString, word);
        write_file(path(u"a"_s), "earlier");
        QVERIFY(QFile::setPermissions(path(u"a"_s), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));

        QTEST(error_for_another_user(path(u"a"_s), word), "error");

        QCOMPARE(file_bytes(path(u"a"_s)), "earlier");
    }

    void aDirectoryWithoutPermissionIsRefused_data() { addWords(u"Permission denied"_s); }
    void aDirectoryWithoutPermissionIsRefused()
    {
        QFETCH(const QString, word);
        const QFile::Permissions reading(0x5555);
        QVERIFY(QFile::setPermissions(directory->path(), reading));

        QTEST(error_for_another_user(path(u"a"_s), word), "error");

        QVERIFY(!QFile::exists(path(u"a"_s)));
        QVERIFY(QFile::setPermissions(directory->path(), QFile::Permissions(0x7755)));
    }

private:
    /// Put together by hand: the toolkit takes a name that begins with a colon for one of its own.
    [[nodiscard]] QString path(const QString &name) const { return directory->path() + u'/' + name; }

    /// Both roads to a file, and what they say of it.
    static void addWords(const QString &reason)
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("error");

        QTest::newRow("png") << u"PNG"_s << u"Can not open file for write: \n"_s + reason;
        QTest::newRow("tiff") << u"TIFF"_s << u"Error saving TIFF image!"_s;
    }

    static void verifyRefused(const QString &path)
    {
        QFETCH(const QString, word);
        const auto document = modified_document();

        QVERIFY(!document->save(path, word));

        QTEST(document->lastError, "error");
        QVERIFY(document->isModified());
        QCOMPARE(document->filePath(), QString());
    }

    std::optional<QTemporaryDir> directory;
};

TEST_MAIN_APART(QCoreApplication, tst_ImageDocument_save_places, leave_common_mounts)

#include "tst_ImageDocument_save_places.moc"

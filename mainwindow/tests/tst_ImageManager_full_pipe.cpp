#include "diagnostics.h"
#include "WindowFixture.h"

#include <QTest>

#include <array>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_ImageManager_full_pipe : public QObject
{
    Q_OBJECT

private slots:
    void aLongSessionGoesOnThoughNobodyReadsItsDiagnosticLines()
    {
        constexpr int pipeSize = 4096; // a few edits fill it
        constexpr int edits = 200;
        std::array<int, 2> pipe{};
        QCOMPARE(::pipe(pipe.data()), 0);
        QCOMPARE(::fcntl(pipe[1], F_SETPIPE_SZ, pipeSize), pipeSize);
        ::dup2(pipe[1], STDERR_FILENO);
        write_diagnostics_without_waiting();
        ::alarm(100); // a line that waits would wait for ever
        WindowFixture fixture(u"a.png"_s);

        for (int i = 0; i < edits; ++i) {
            fixture.select(QPoint(1, 1), QPoint(300, 300)); // all but a line at the left and the top
            fixture.action(u"image_crop"_s)->trigger();
            QVERIFY(fixture.enabled(u"edit_undo"_s));
            fixture.action(u"edit_undo"_s)->trigger();
        }

        std::array<char, pipeSize> bytes{};
        QVERIFY(::read(pipe[0], bytes.data(), bytes.size()) > pipeSize / 2);
        QVERIFY(fixture.enabled(u"edit_redo"_s));
    }
};

QTEST_MAIN(tst_ImageManager_full_pipe)
#include "tst_ImageManager_full_pipe.moc"

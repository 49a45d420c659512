#include "file_dialogs.h"
#include "ImageFileDialog.h"

#include "DiagnosticLines.h"
#include "TemporaryHome.h"

#include <QTest>

#include <new>

using namespace Qt::StringLiterals;

namespace {

bool noRoomForDialogs = false;

} // namespace

// Replaces the library's for the whole program: it refuses the dialogs alone, on demand.
void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    if (noRoomForDialogs && size == sizeof(ImageFileDialog))
        return nullptr;
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

class tst_dialog_allocation : public QObject
{
    Q_OBJECT

private slots:
    void init() { noRoomForDialogs = true; }
    void cleanup() { noRoomForDialogs = false; }

    void dialogThatHasNoRoomIsRefused_data()
    {
        QTest::addColumn<bool>("saves");
        QTest::newRow("opening") << false;
        QTest::newRow("saving") << true;
    }

    void dialogThatHasNoRoomIsRefused()
    {
        QFETCH(const bool, saves);
        const TemporaryHome home;
        DiagnosticLines lines;
        lines.expect(u"Failed to create file dialog"_s);

        QString path = u"scan.png"_s;
        QString format = u"png"_s;
        QVERIFY(!(saves ? save_file_dialog(path, format, nullptr, nullptr) : open_file_dialog(path, format, nullptr)));

        QCOMPARE(path, u"scan.png"_s);
        QCOMPARE(format, u"png"_s);
    }
};

QTEST_MAIN(tst_dialog_allocation)
#include "tst_dialog_allocation.moc"

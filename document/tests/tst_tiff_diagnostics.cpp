#include "tiff_diagnostics.h"

#include "DiagnosticLines.h"

#include <QTest>

#include <tiffio.h>

using namespace Qt::StringLiterals;

class tst_tiff_diagnostics : public QObject
{
    Q_OBJECT

private slots:
    void whatTheLibrarySaysIsALineOfTheToolkit()
    {
        DiagnosticLines lines;
        lines.expect(u"reader: page 3 is short"_s);
        lines.expect(u"writer: disk is full"_s);
        tell_of_tiff_by_the_toolkit();

        TIFFWarning("reader", "page %d is short", 3);
        TIFFError("writer", "disk is %s", "full");

        QCOMPARE(lines.missing(), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_tiff_diagnostics)
#include "tst_tiff_diagnostics.moc"

#include "writable_format.h"

#include "NextBox.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_writable_format : public QObject
{
    Q_OBJECT

private slots:
    void formatOfAWriterIsConfirmed_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QByteArray>("writer");
        QTest::newRow("same spelling") << u"png"_s << QByteArray("png");
        QTest::newRow("key in capitals") << u"PNG"_s << QByteArray("png");
        QTest::newRow("writer in capitals") << u"png"_s << QByteArray("PNG");
        QTest::newRow("key in mixed letters") << u"Png"_s << QByteArray("PNG");
    }

    void formatOfAWriterIsConfirmed()
    {
        QFETCH(const QString, key);
        QFETCH(const QByteArray, writer);

        QVERIFY(confirm_writable_format(key, {"bmp", writer}));
    }

    void tiffNeedsNoWriter_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("capitals") << u"TIFF"_s;
        QTest::newRow("small letters") << u"tiff"_s;
    }

    void tiffNeedsNoWriter()
    {
        QFETCH(const QString, key);

        QVERIFY(confirm_writable_format(key, {}));
    }

    void formatWithoutAWriterIsRefused_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("one that others write") << u"png"_s;
        QTest::newRow("short name of TIFF") << u"tif"_s;
        QTest::newRow("multi-page TIFF") << u"MTIFF"_s;
        QTest::newRow("place marker") << u"%1"_s;
    }

    void formatWithoutAWriterIsRefused()
    {
        QFETCH(const QString, key);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        QVERIFY(!confirm_writable_format(key, {"bmp"}));

        QCOMPARE(box.title(), u"Unsupported Format"_s);
        QCOMPARE(box.text(), QString("Image format "_L1 + key + " is not supported!"_L1));
        QCOMPARE(box.buttons(), QMessageBox::Ok);
    }

    void pseudoFormatIsRefusedEvenWithAWriter_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("all graphic files") << u"GRAPH"_s;
        QTest::newRow("all files") << u"ALL"_s;
    }

    void pseudoFormatIsRefusedEvenWithAWriter()
    {
        QFETCH(const QString, key);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        QVERIFY(!confirm_writable_format(key, {key.toLatin1()}));

        QCOMPARE(box.title(), u"Choose Type"_s);
        QCOMPARE(box.text(), u"Please, choose the type explicitly."_s);
        QCOMPARE(box.buttons(), QMessageBox::Ok);
    }
};

QTEST_MAIN(tst_writable_format)
#include "tst_writable_format.moc"

#include "embedded_images.h"
#include "embedded_pixmaps.h"
#include "MimeSourceFactory_ImageManager.h"

#include <QPixmap>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QMimeSource *default_data(const QString &name)
{
    return Q3MimeSourceFactory::defaultFactory()->data(name);
}

// Asked while the objects of this file are initialised, with nothing called by hand.
const bool knownBeforeMain = default_data(u"Save_gray.png"_s) != nullptr;

QImage image_in(const QMimeSource *source)
{
    const auto *const drag = dynamic_cast<const Q3ImageDrag *>(source);
    return drag ? drag->image() : QImage();
}

/// Counts what is unpacked and stored, which is all that the store is told.
class CountingFactory : public MimeSourceFactory_ImageManager
{
public:
    void setImage(const QString &abs_name, const QImage &image) override
    {
        ++stored;
        MimeSourceFactory_ImageManager::setImage(abs_name, image);
    }

    int stored = 0;
};

} // namespace

class tst_MimeSourceFactory_ImageManager : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { register_embedded_pixmaps(); }

    void thePicturesAreKnownBeforeMain() { QVERIFY(knownBeforeMain); }

    void everyNameOfTheTableIsServedByTheDefaultFactory()
    {
        for (const EmbeddedImage *row = embedded_tool_pictures(); row->data; ++row) {
            const QImage image = image_in(default_data(QString::fromUtf8(row->name)));

            QCOMPARE(image.size(), QSize(24, 24));
            QVERIFY2(image.hasAlphaChannel(), row->name);
            QCOMPARE(image, unpack_embedded_image(*row));
        }
    }

    void aSecondCallServesThePictureFromTheStore()
    {
        unregister_embedded_pixmaps(); // or the default factory would answer for this one
        CountingFactory factory;

        const QMimeSource *const first = factory.data(u"Undo_color.png"_s);
        const QMimeSource *const second = factory.data(u"Undo_color.png"_s);

        QVERIFY(first);
        QCOMPARE(second, first);
        QCOMPARE(factory.stored, 1);
    }

    void theRegisteredFactoryKeepsWhatItUnpacked()
    {
        const QMimeSource *const first = default_data(u"Redo_color.png"_s);
        const qint64 pixels = image_in(first).cacheKey();

        const QMimeSource *const second = default_data(u"Redo_color.png"_s);

        QCOMPARE(second, first);
        QCOMPARE(image_in(second).cacheKey(), pixels);
    }

    void whatIsInTheStoreComesBeforeTheTable()
    {
        CountingFactory factory;
        QImage own(2, 2, QImage::Format_RGB32);
        own.fill(Qt::red);
        factory.setImage(u"Undo_color.png"_s, own);

        QCOMPARE(image_in(factory.data(u"Undo_color.png"_s)), own);
    }

    void anUnknownNameHasNoPicture_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("without its ending") << u"Save_gray"_s;
        QTest::newRow("lower case") << u"save_gray.png"_s;
        QTest::newRow("upper case") << u"SAVE_GRAY.PNG"_s;
        QTest::newRow("only a base") << u"Save"_s;
        QTest::newRow("a command without a picture") << u"Print_gray.png"_s;
        QTest::newRow("a space behind") << u"Save_gray.png "_s;
        QTest::newRow("a folder before") << u"icons/Save_gray.png"_s;
        QTest::newRow("the program's own picture") << u"imagemanager_16.png"_s;
        QTest::newRow("empty") << u""_s;
        QTest::newRow("null") << QString();
    }
    void anUnknownNameHasNoPicture()
    {
        QFETCH(const QString, name);
        CountingFactory factory;

        QVERIFY(!factory.data(name));
        QVERIFY(!default_data(name));
        QCOMPARE(factory.stored, 0);
    }

    void registeringTwiceAddsOneFactory()
    {
        register_embedded_pixmaps();
        register_embedded_pixmaps();

        unregister_embedded_pixmaps(); // a second factory would still answer

        QVERIFY(!default_data(u"Save_gray.png"_s));
    }

    void unregisteringTwiceIsHarmless()
    {
        unregister_embedded_pixmaps();
        unregister_embedded_pixmaps();

        QVERIFY(!default_data(u"Crop_color.png"_s));
    }

    void registeringAgainBringsThePicturesBack()
    {
        unregister_embedded_pixmaps();

        register_embedded_pixmaps();

        QVERIFY(default_data(u"Save_gray.png"_s));
    }

    void aPictureDecodesIntoAPixmapWithItsAlpha()
    {
        QPixmap pixmap;

        QVERIFY(Q3ImageDrag::decode(default_data(u"ZoomIn_color.png"_s), pixmap));

        QCOMPARE(pixmap.size(), QSize(24, 24));
        QVERIFY(pixmap.hasAlphaChannel());
        const QImage shown = pixmap.toImage();
        QCOMPARE(qAlpha(shown.pixel(23, 0)), 0); // the ground beside the lens
        QCOMPARE(qAlpha(shown.pixel(10, 10)), 255); // the middle of the lens
    }
};

QTEST_MAIN(tst_MimeSourceFactory_ImageManager)
#include "tst_MimeSourceFactory_ImageManager.moc"

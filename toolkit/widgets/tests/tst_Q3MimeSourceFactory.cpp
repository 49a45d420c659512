#include "Q3MimeSourceFactory.h"

#include <QDir>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QImage picture_of(QRgb colour)
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

QImage image_of(const QMimeSource *source)
{
    const auto *const drag = dynamic_cast<const Q3ImageDrag *>(source);
    return drag ? drag->image() : QImage();
}

/// Makes a picture on demand, as a factory of embedded pictures does, and counts how often.
class LazyFactory : public Q3MimeSourceFactory
{
public:
    LazyFactory(QString name, QRgb colour) : m_name(std::move(name)), m_colour(colour)
    {
        Q3MimeSourceFactory::addFactory(this);
    }
    Q_DISABLE_COPY_MOVE(LazyFactory)
    ~LazyFactory() override { Q3MimeSourceFactory::removeFactory(this); }

    [[nodiscard]] const QMimeSource *data(const QString &name) const override
    {
        ++calls;
        if (const QMimeSource *const source = Q3MimeSourceFactory::data(name))
            return source;
        if (name != m_name)
            return nullptr;
        ++made;
        const_cast<LazyFactory *>(this)->setImage(name, picture_of(m_colour));
        return Q3MimeSourceFactory::data(name);
    }

    mutable int calls = 0;
    mutable int made = 0;

private:
    QString m_name;
    QRgb m_colour;
};

// Made before main(), as registration at program start does.
const Q3MimeSourceFactory *const FactoryBeforeMain = Q3MimeSourceFactory::defaultFactory();

} // namespace

class tst_Q3MimeSourceFactory : public QObject
{
    Q_OBJECT

private slots:
    void defaultFactoryIsTheSameBeforeAndInMain();
    void storedImageIsFoundByItsName();
    void setImageReplacesTheFormerEntry();
    void nullDataEmptiesTheEntry();
    void entryMayHaveAnEmptyName();
    void emptyNameFindsNothing();
    void absoluteNameIsReadAsFile();
    void plainNameIsNotReadFromTheCurrentDirectory();
    void plainNameIsReadFromTheEmbeddedFolder();
    void defaultFactoryAsksAddedOnesInOrder();
    void removedFactoryIsNotAsked();
    void otherFactoryAsksTheDefaultOne();
    void addedFactoryAskedDirectlyMakesItsPictureOnce();
    void addedFactoryIsAskedOnceForAnUnknownName();
    void overrideMayReturnANonConstSource();
    void decodeKeepsColoursAndAlpha();
    void decodeOfNothingIsFalse();
};

void tst_Q3MimeSourceFactory::defaultFactoryIsTheSameBeforeAndInMain()
{
    QVERIFY(FactoryBeforeMain);
    QCOMPARE(Q3MimeSourceFactory::defaultFactory(), FactoryBeforeMain);
}

void tst_Q3MimeSourceFactory::storedImageIsFoundByItsName()
{
    Q3MimeSourceFactory factory;

    factory.setImage(u"Save_gray.png"_s, picture_of(0xff102030));

    QCOMPARE(image_of(factory.data(u"Save_gray.png"_s)), picture_of(0xff102030));
    QVERIFY(!factory.data(u"Save_gray"_s));
    QVERIFY(!factory.data(u"save_gray.png"_s));
}

void tst_Q3MimeSourceFactory::setImageReplacesTheFormerEntry()
{
    Q3MimeSourceFactory factory;
    factory.setImage(u"a"_s, picture_of(0xff000001));

    factory.setImage(u"a"_s, picture_of(0xff000002));

    QCOMPARE(image_of(factory.data(u"a"_s)), picture_of(0xff000002));
}

void tst_Q3MimeSourceFactory::nullDataEmptiesTheEntry()
{
    Q3MimeSourceFactory factory;
    factory.setImage(u"a"_s, picture_of(0xff000001));

    factory.setData(u"a"_s, nullptr);

    QVERIFY(!factory.data(u"a"_s));
}

void tst_Q3MimeSourceFactory::entryMayHaveAnEmptyName()
{
    Q3MimeSourceFactory factory;

    factory.setImage(QString(), picture_of(0xff000001));

    QCOMPARE(image_of(factory.data(u""_s)), picture_of(0xff000001));
}

void tst_Q3MimeSourceFactory::emptyNameFindsNothing()
{
    const LazyFactory added{QString(), 0xff000001};

    QVERIFY(!Q3MimeSourceFactory::defaultFactory()->data(QString()));
    QCOMPARE(added.calls, 0);
}

void tst_Q3MimeSourceFactory::absoluteNameIsReadAsFile()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"picture.png"_s);
    QVERIFY(picture_of(0xff405060).save(path));

    const Q3MimeSourceFactory factory;

    QCOMPARE(image_of(factory.data(path)).pixel(1, 1), 0xff405060U);
    QVERIFY(!factory.data(directory.filePath(u"missing.png"_s)));
}

void tst_Q3MimeSourceFactory::plainNameIsNotReadFromTheCurrentDirectory()
{
    const QTemporaryDir directory;
    QVERIFY(picture_of(0xff405060).save(directory.filePath(u"Save_gray.png"_s)));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(directory.path()));

    const Q3MimeSourceFactory factory;
    const QMimeSource *const source = factory.data(u"Save_gray.png"_s);

    QVERIFY(QDir::setCurrent(before));
    QVERIFY(!source);
}

void tst_Q3MimeSourceFactory::plainNameIsReadFromTheEmbeddedFolder()
{
    const Q3MimeSourceFactory factory;

    QCOMPARE(image_of(factory.data(u"dot.xpm"_s)).pixel(0, 0), qRgb(255, 0, 0));
}

void tst_Q3MimeSourceFactory::defaultFactoryAsksAddedOnesInOrder()
{
    const LazyFactory first(u"a"_s, 0xff000001);
    const LazyFactory second(u"a"_s, 0xff000002);
    const LazyFactory third(u"b"_s, 0xff000003);

    QCOMPARE(image_of(Q3MimeSourceFactory::defaultFactory()->data(u"a"_s)), picture_of(0xff000001));
    QCOMPARE(second.calls, 0);
    QCOMPARE(image_of(Q3MimeSourceFactory::defaultFactory()->data(u"b"_s)), picture_of(0xff000003));
}

void tst_Q3MimeSourceFactory::removedFactoryIsNotAsked()
{
    LazyFactory factory(u"a"_s, 0xff000001);

    Q3MimeSourceFactory::removeFactory(&factory);

    QVERIFY(!Q3MimeSourceFactory::defaultFactory()->data(u"a"_s));
    QCOMPARE(factory.calls, 0);
}

void tst_Q3MimeSourceFactory::otherFactoryAsksTheDefaultOne()
{
    const LazyFactory added(u"a"_s, 0xff000001);
    const Q3MimeSourceFactory other;

    QCOMPARE(image_of(other.data(u"a"_s)), picture_of(0xff000001));
    QVERIFY(!other.data(u"b"_s));
}

void tst_Q3MimeSourceFactory::addedFactoryAskedDirectlyMakesItsPictureOnce()
{
    const LazyFactory added(u"a"_s, 0xff000001);

    const QMimeSource *const first = added.data(u"a"_s);
    const QMimeSource *const second = added.data(u"a"_s);

    QCOMPARE(image_of(first), picture_of(0xff000001));
    QCOMPARE(second, first);
    QCOMPARE(added.made, 1);
}

void tst_Q3MimeSourceFactory::addedFactoryIsAskedOnceForAnUnknownName()
{
    const LazyFactory added(u"a"_s, 0xff000001);

    QVERIFY(!Q3MimeSourceFactory::defaultFactory()->data(u"unknown"_s));

    QCOMPARE(added.calls, 1);
}

void tst_Q3MimeSourceFactory::overrideMayReturnANonConstSource()
{
    class Narrowing : public Q3MimeSourceFactory
    {
    public:
        QMimeSource *data(const QString &name) const override
        {
            return const_cast<QMimeSource *>(Q3MimeSourceFactory::data(name));
        }
    };
    Narrowing factory;
    factory.setImage(u"a"_s, picture_of(0xff000001));

    QMimeSource *const source = factory.data(u"a"_s);

    QCOMPARE(image_of(source), picture_of(0xff000001));
}

void tst_Q3MimeSourceFactory::decodeKeepsColoursAndAlpha()
{
    const Q3ImageDrag drag(picture_of(qRgba(255, 0, 255, 51)));
    QPixmap pixmap;

    QVERIFY(Q3ImageDrag::decode(&drag, pixmap));

    QCOMPARE(pixmap.size(), QSize(2, 2));
    QCOMPARE(pixmap.toImage().convertToFormat(QImage::Format_ARGB32).pixel(0, 0), qRgba(255, 0, 255, 51));
}

void tst_Q3MimeSourceFactory::decodeOfNothingIsFalse()
{
    QPixmap pixmap(3, 3);
    const Q3ImageDrag empty{QImage()};
    const QMimeSource noPicture;

    QVERIFY(!Q3ImageDrag::decode(nullptr, pixmap));
    QVERIFY(pixmap.isNull());
    QVERIFY(!Q3ImageDrag::decode(&empty, pixmap));
    QVERIFY(!Q3ImageDrag::decode(&noPicture, pixmap));
}

QTEST_MAIN(tst_Q3MimeSourceFactory)

#include "tst_Q3MimeSourceFactory.moc"

#include "Q3MimeSourceFactory.h"

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

QMimeSource::~QMimeSource() = default;

Q3ImageDrag::Q3ImageDrag(QImage image) : m_image(std::move(image)) { }

Q3ImageDrag::~Q3ImageDrag() = default;

bool Q3ImageDrag::decode(const QMimeSource *source, QPixmap &pixmap)
{
    const auto *const drag = dynamic_cast<const Q3ImageDrag *>(source);
    pixmap = drag ? QPixmap::fromImage(drag->image()) : QPixmap();
    return !pixmap.isNull();
}

Q3MimeSourceFactory::~Q3MimeSourceFactory() = default;

Q3MimeSourceFactory *Q3MimeSourceFactory::defaultFactory()
{
    // Never destroyed: factories of static objects leave it at exit, in whatever order.
    static auto *const factory = new Q3MimeSourceFactory;
    return factory;
}

void Q3MimeSourceFactory::addFactory(Q3MimeSourceFactory *factory)
{
    defaultFactory()->m_added.push_back(factory);
}

void Q3MimeSourceFactory::removeFactory(Q3MimeSourceFactory *factory)
{
    std::erase(defaultFactory()->m_added, factory);
}

const QMimeSource *Q3MimeSourceFactory::data(const QString &abs_name) const
{
    if (const auto stored = m_store.find(abs_name); stored != m_store.end())
        return stored->second.get();
    if (abs_name.isEmpty())
        return nullptr;
    if (const QMimeSource *const source = dataOfFile(abs_name))
        return source;
    return this == defaultFactory() ? dataOfAdded(abs_name) : defaultFactory()->data(abs_name);
}

void Q3MimeSourceFactory::setImage(const QString &abs_name, const QImage &image)
{
    setData(abs_name, std::make_unique<Q3ImageDrag>(image));
}

void Q3MimeSourceFactory::setData(const QString &abs_name, std::unique_ptr<QMimeSource> source)
{
    if (source)
        m_store[abs_name] = std::move(source);
    else
        m_store.erase(abs_name);
}

const QMimeSource *Q3MimeSourceFactory::dataOfFile(const QString &abs_name) const
{
    // A plain name is a resource and never a file of the current directory.
    const QString path = QDir::isAbsolutePath(abs_name) ? abs_name : ":/images/"_L1 + abs_name;
    // Looked at first: a reader that finds no file loads every plug-in to try the suffixes of all formats.
    const QImage image = QFile::exists(path) ? QImage(path) : QImage();
    if (image.isNull())
        return nullptr;
    m_fromFile = std::make_unique<Q3ImageDrag>(image);
    return m_fromFile.get();
}

const QMimeSource *Q3MimeSourceFactory::dataOfAdded(const QString &abs_name) const
{
    if (m_bAskingAdded)
        return nullptr; // asked back by an added factory
    const QScopedValueRollback asking(m_bAskingAdded, true);
    const std::vector<Q3MimeSourceFactory *> factories = m_added; // an answer may add or remove one
    for (const Q3MimeSourceFactory *factory : factories) {
        if (const QMimeSource *const source = factory->data(abs_name))
            return source;
    }
    return nullptr;
}

#include "MimeSourceFactory_ImageManager.h"

#include "embedded_images.h"
#include "embedded_pixmaps.h"

#include <QString>

namespace {

MimeSourceFactory_ImageManager *instance = nullptr; ///< the only one, while registered

QImage embedded_image(const QString &name)
{
    for (const EmbeddedImage *row = embedded_tool_pictures(); row->data; ++row) {
        if (QString::fromUtf8(row->name) == name)
            return unpack_embedded_image(*row);
    }
    return {};
}

} // namespace

MimeSourceFactory_ImageManager::~MimeSourceFactory_ImageManager() = default;

QMimeSource *MimeSourceFactory_ImageManager::data(const QString &abs_name) const
{
    const QMimeSource *const stored = Q3MimeSourceFactory::data(abs_name);
    if (stored || abs_name.isNull())
        return const_cast<QMimeSource *>(stored);

    const QImage image = embedded_image(abs_name);
    // Asking is constant to the caller; keeping what was unpacked is not, but changes no answer.
    if (!image.isNull())
        const_cast<MimeSourceFactory_ImageManager *>(this)->setImage(abs_name, image);
    return const_cast<QMimeSource *>(Q3MimeSourceFactory::data(abs_name));
}

void register_embedded_pixmaps()
{
    if (instance)
        return;
    instance = new MimeSourceFactory_ImageManager;
    Q3MimeSourceFactory::addFactory(instance);
}

void unregister_embedded_pixmaps()
{
    if (!instance)
        return;
    Q3MimeSourceFactory::removeFactory(instance);
    delete instance;
    instance = nullptr;
}

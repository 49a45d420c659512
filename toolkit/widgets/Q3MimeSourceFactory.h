#pragma once

#include <QImage>
#include <QString>
#include <QtGlobal>

#include <map>
#include <memory>
#include <vector>

class QPixmap;

/// Something that a mime source factory hands out under a name.
class QMimeSource
{
public:
    QMimeSource() = default;
    Q_DISABLE_COPY_MOVE(QMimeSource)
    virtual ~QMimeSource();
};

/// A picture as a mime source.
class Q3ImageDrag : public QMimeSource
{
public:
    explicit Q3ImageDrag(QImage image);
    Q_DISABLE_COPY_MOVE(Q3ImageDrag)
    ~Q3ImageDrag() override;

    [[nodiscard]] const QImage &image() const { return m_image; }

    /// Makes a pixmap, alpha included, of the picture in @p source. Needs the application object.
    /// @return false, with @p pixmap null, if @p source is null, no picture, or a null picture
    [[nodiscard]] static bool decode(const QMimeSource *source, QPixmap &pixmap);

private:
    QImage m_image;
};

/// Hands out mime sources by name: from its store, from files, and through the default factory from all
/// factories that were added to it.
///
/// It can be used before main() and at exit. The default factory is made at the first call and never
/// destroyed.
///
/// Ownership: a factory owns what is in its store; the default factory does not own the added ones.
/// Threads:   GUI thread only.
class Q3MimeSourceFactory
{
public:
    Q3MimeSourceFactory() = default;
    Q_DISABLE_COPY_MOVE(Q3MimeSourceFactory)
    virtual ~Q3MimeSourceFactory();

    [[nodiscard]] static Q3MimeSourceFactory *defaultFactory();

    /// Adds @p factory to those that the default factory asks, in the order of adding.
    static void addFactory(Q3MimeSourceFactory *factory);
    static void removeFactory(Q3MimeSourceFactory *factory);

    /// Looks for @p abs_name in the store, then as a picture file if the name is absolute, else as a picture
    /// among the embedded resources under ":/images". At last the default factory asks the added
    /// ones, any other factory asks the default one.
    /// @return null if there is none; else valid until the next data() or setData()
    [[nodiscard]] virtual const QMimeSource *data(const QString &abs_name) const;

    /// Stores @p image under @p abs_name in place of what is there.
    virtual void setImage(const QString &abs_name, const QImage &image);

    /// Stores @p source under @p abs_name in place of what is there; null only empties the place.
    virtual void setData(const QString &abs_name, std::unique_ptr<QMimeSource> source);

private:
    [[nodiscard]] const QMimeSource *dataOfFile(const QString &abs_name) const;
    [[nodiscard]] const QMimeSource *dataOfAdded(const QString &abs_name) const;

    std::map<QString, std::unique_ptr<QMimeSource>> m_store;
    std::vector<Q3MimeSourceFactory *> m_added; ///< of the default factory
    mutable std::unique_ptr<QMimeSource> m_fromFile; ///< the last answer that came from a file
    mutable bool m_bAskingAdded = false;
};

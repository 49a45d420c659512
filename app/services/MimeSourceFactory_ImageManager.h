#pragma once

#include "Q3MimeSourceFactory.h"

/// Serves the embedded tool pictures by name, such as "Save_gray.png". No PNG data stands behind these names.
///
/// A picture is unpacked when it is first asked for and then served from the store of the base class.
///
/// Errors:    an unknown name gives null, without a message.
/// Ownership: what data() returns belongs to the factory.
/// Threads:   GUI thread only.
class MimeSourceFactory_ImageManager : public Q3MimeSourceFactory
{
public:
    MimeSourceFactory_ImageManager() = default;
    ~MimeSourceFactory_ImageManager() override;
    Q_DISABLE_COPY_MOVE(MimeSourceFactory_ImageManager)

    /// @param abs_name  compared whole and with case
    /// @return valid until the store of this factory changes; null for an unknown name
    QMimeSource *data(const QString &abs_name) const override;
};

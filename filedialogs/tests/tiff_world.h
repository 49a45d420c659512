#pragma once

#include <QImageReader>
#include <QtGlobal>

/// Whether this run is the one with the toolkit's TIFF plug-in; without_tiff_plugin starts the other.
[[nodiscard]] inline bool tiff_plugin_expected()
{
    return !qEnvironmentVariableIsSet("IM_WITHOUT_TIFF_PLUGIN");
}

/// Whether the toolkit reads TIFF. It is the first thing a test checks, or the second run would only
/// repeat the first.
[[nodiscard]] inline bool tiff_plugin_present()
{
    return QImageReader::supportedImageFormats().contains("tif");
}

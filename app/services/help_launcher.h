#pragma once

#include <QString>

// The help viewer is a program of its own in the package, called pagr. It is started and forgotten: nothing tells
// whether it came up, and each call starts another one. Without a viewer nothing happens.
//
// Threads: GUI thread only.

/// Starts the viewer of this package on a page of help.
/// @param topic    file name of the page in the package's help directory, empty for none in particular
/// @param n, h, f  the viewer's own values
void showHelp(const QString &topic, int n, int h, int f);

/// Starts the viewer with its options, in a fixed order. An empty text leaves its option out.
/// @param binDir    directory of the viewer; empty to search it in PATH
/// @param helpDir   directory of the pages (-s)
/// @param topic     page to show (-u)
/// @param overview  page about the whole package (-g)
/// @param n, h, f   the viewer's own values (-n, -h, -f)
/// @param uiAbout, resAbout, translate, shareDir, vendorConfigDir  the viewer's own texts (--ui-about, --res-about,
///                  --translate, --sharedir, --vendorconfigdir)
void launchHelpViewer(const QString &binDir, const QString &helpDir, const QString &topic, const QString &overview,
                      int n, int h, int f, const QString &uiAbout, const QString &resAbout, const QString &translate,
                      const QString &shareDir, const QString &vendorConfigDir);

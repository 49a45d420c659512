#pragma once

#include <cstdint>

/// What the program knows of the package it was installed with: where its directories are, and for which
/// vendor and models the package was made. Nothing here needs the toolkit.
///
/// The record is plain memory of fixed size, shared under the name actx. Every string in it ends in NUL and
/// is cut to its field, whatever was read.
///
/// Source:  the path that the program was started by, and a text file, OEM.ini. A line of the file is at
///          most 511 bytes; a longer one counts as several. Each line is searched for the keys in the order
///          of the table below; the first that stands anywhere in it decides, and what follows the key is
///          the value. There are no sections, comments or quotes; other lines are passed over.
///
///              MULTIVENDOR=  PARPORT=  PORTPLUGIN=  SCANNER=  UPDATE_PRINTER_GROUP=   whole numbers
///              VENDOR=  URL=                                                          texts
///              MODEL=  PLUGIN=                                                        lists, an entry a line
///
/// Threads: filled once at start; not to be read from elsewhere before that.
// NOLINTBEGIN(modernize-avoid-c-arrays): the layout is part of what the program exports.
struct AppContext
{
    char app_file_dir[4096]; ///< directory of the executable, no "/" at its end
    char package_dir[4096]; ///< parent of app_file_dir
    char share_dir[4096]; ///< package_dir followed by "/share"

    char vendor[32]; ///< as written
    char vendor_lc[32]; ///< in lower case
    char vendor_uc[32]; ///< in upper case
    char url[256];
    char model[32][16];
    std::int32_t model_count; ///< entries used in model; further ones were dropped
    char plugin[5][4096];
    std::int32_t plugin_count; ///< entries used in plugin; further ones were dropped

    // Flags. In a file that does not name them multivendor is 0 and the others are 1.
    std::int32_t multivendor;
    std::int32_t parport;
    std::int32_t portplugin;
    std::int32_t scanner;
    std::int32_t update_printer_group;
};
// NOLINTEND(modernize-avoid-c-arrays)

/// The record of this process, all zero until find_installation() has run.
extern AppContext actx;

/// Fills actx from the path that the program was started by. OEM.ini is looked for in the share directory,
/// in the package's directory and in the current one; the first that opens is read.
/// @param argv0  taken as it stands: "..", symbolic links and PATH are not followed
/// @return 0, or -1 when no OEM.ini opened: then the directories are known and all else is as it was
int find_installation(const char *argv0);

/// Reads one file into actx.
/// @return 0, or -1 when the file does not open: then nothing has changed
int read_oem_ini(const char *path);

/// The record as text for a debugger: the first 1023 bytes of it, with the first model and plug-in alone.
/// @return a buffer that the next call overwrites
char *dump_actx(const AppContext *ctx);

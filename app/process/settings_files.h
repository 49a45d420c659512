#pragma once

/// Turns to no settings at all where a file that QSettings would read is no plain file. Opening a pipe or a device would
/// wait, perhaps for ever, before there is a window. Reading gives the defaults then, and what is stored is lost, of
/// which a warning tells.
///
/// To be called once the application has its name, and before settings are read.
void avoid_odd_settings_files();

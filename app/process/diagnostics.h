#pragma once

class QByteArray;

/// Lets the toolkit's diagnostic lines go to standard error without ever waiting for its reader: what a full pipe
/// does not take at once is dropped. The flags of the descriptor, which belongs to the caller as well, stay as they
/// are.
void write_diagnostics_without_waiting();

/// Writes a line in the same way.
/// @param line  without the line break
void write_diagnostic_line(const QByteArray &line);

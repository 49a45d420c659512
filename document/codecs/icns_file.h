#pragma once

class QIODevice;

/// Whether the blocks of an ICNS file lie within it, and the coded pixels of its icons of 24 bits suffice. The
/// toolkit's reader shows zeros for blocks that are cut, and former memory where codes are missing. Read from where
/// the file stands.
[[nodiscard]] bool is_complete_icns(QIODevice &file);

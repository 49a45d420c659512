#pragma once

class QIODevice;

/// Whether every pixel of the first picture of a GIF file is there; further ones are not shown. Its chain of blocks
/// comes to its end or, where that is missing, the codes suffice. Read from where the file stands.
[[nodiscard]] bool is_complete_gif(QIODevice &file);

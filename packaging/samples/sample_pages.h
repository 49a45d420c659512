#pragma once

#include <QImage>

/// The sample pages: drawn, then given what a flatbed scanner adds. The same pixels at every call, with the same
/// fonts. Their resolution is set in the image.
///
/// Threads: GUI thread only; text needs the QGuiApplication.

/// A typed letter on tinted paper, punched and stamped. Depth 8 with few colours, 150 dots per inch.
[[nodiscard]] QImage letter_page();

/// A page of a book of photographs with one continuous-tone picture. Depth 32, 150 dots per inch.
[[nodiscard]] QImage photograph_page();

/// A filled-in delivery form. Depth 1, 300 dots per inch.
[[nodiscard]] QImage form_page();

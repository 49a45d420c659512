#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>
#include <QSize>

/// PNG files made byte by byte, of any kind of pixel.
struct PlainPng
{
    QSize size{3, 2};
    int bits = 8;
    int kind = 2; ///< 0 grey, 2 colours, 3 indices, 4 grey with alpha, 6 colours with alpha
    int filter = -1; ///< of all rows; negative for one of each row's own
    int colors = 256; ///< of the table, where there is one
    int largestIndex = 255; ///< of bytes that are indices
    quint32 seed = 1;
    qsizetype pieceBytes = 1 << 20; ///< of the parts that the pixels are stored in
    QByteArray before{}; ///< chunks before the pixels
    QByteArray after{}; ///< chunks behind them

    [[nodiscard]] int samples() const;
    /// Rows as they are stored: each the number of its filter and its filtered bytes, of a random picture.
    [[nodiscard]] QByteArray storedRows() const;
    /// A file with the table of colours, where there is one.
    [[nodiscard]] QByteArray file() const { return fileOf(deflated(storedRows())); }
    /// The same with a stream of one's own as pixels.
    [[nodiscard]] QByteArray fileOf(const QByteArray &stream) const;

    [[nodiscard]] static QByteArray deflated(const QByteArray &rows);
};

#include "sample_pages.h"
#include "scan_effects.h"

#include <QPainter>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int DotsPerInch = 300;
constexpr int Left = 200;
constexpr int Right = 2280;

struct Item
{
    const char *number;
    const char *goods;
    const char *quantity;
    const char *price; ///< of one
    const char *sum;
};

constexpr std::array Items{
    Item{"100-80W", "Copying paper, white, A4, 80 g", "12 boxes", "18.50", "222.00"},
    Item{"100-99I", "Copying paper, ivory, A4, 100 g", "3 boxes", "24.00", "72.00"},
    Item{"310-02M", "Folding carton, medium", "40 pieces", "0.85", "34.00"},
    Item{"425-50B", "Brown tape, 50 mm", "2 rolls", "3.20", "6.40"},
    Item{"530-11W", "Envelopes with window, long", "8 boxes", "11.75", "94.00"},
    Item{"", "Carriage, gate 2", "1", "15.00", "15.00"},
};

/// Left edge of each column of the table, and the right edge of the last.
constexpr std::array Columns{Left, 500, 1330, 1640, 1950, Right};
constexpr std::array Captions{"Number", "Goods", "Quantity", "Price each", "Sum"};
constexpr int TableTop = 1260;
constexpr int RowHeight = 110;
constexpr int RowCount = 10; ///< some stay empty, as on a real form

QFont sans(double points, bool bold = false)
{
    return page_font(u"DejaVu Sans"_s, points, DotsPerInch, bold);
}

QFont typed(double points)
{
    return page_font(u"DejaVu Sans Mono"_s, points, DotsPerInch);
}

void draw_field(QPainter &painter, const QRect &box, const QString &caption, const QString &entry)
{
    painter.setPen(QPen(Qt::black, 4));
    painter.drawRect(box);
    painter.setFont(sans(7));
    painter.drawText(box.left() + 16, box.top() + 40, caption);
    painter.setFont(typed(12));
    painter.drawText(box.left() + 30, box.bottom() - 28, entry);
}

void draw_head(QPainter &painter)
{
    painter.fillRect(QRect(Left, 220, 130, 130), Qt::black);
    painter.fillRect(QRect(Left + 38, 258, 54, 54), Qt::white);
    painter.setPen(Qt::black);
    painter.setFont(sans(19, true));
    painter.drawText(Left + 170, 300, u"Riverside Paper Store"_s);
    painter.setFont(sans(9));
    painter.drawText(Left + 172, 348, u"Papers, cartons and office supplies"_s);
    painter.setFont(sans(24, true));
    painter.drawText(QRect(Left, 440, Right - Left, 130), Qt::AlignCenter, u"DELIVERY FORM AND INVOICE"_s);
    painter.fillRect(QRect(Left, 590, Right - Left, 10), Qt::black);
}

void draw_fields(QPainter &painter)
{
    draw_field(painter, QRect(Left, 660, 680, 150), u"Order"_s, u"4711"_s);
    draw_field(painter, QRect(Left + 700, 660, 680, 150), u"Delivery"_s, u"1 of 2"_s);
    draw_field(painter, QRect(Left + 1400, 660, 680, 150), u"Date"_s, u"17 March"_s);
    draw_field(painter, QRect(Left, 830, 1380, 150), u"Delivered to"_s, u"Purchasing department, gate 2"_s);
    draw_field(painter, QRect(Left + 1400, 830, 680, 150), u"Payable within"_s, u"30 days"_s);
    draw_field(painter, QRect(Left, 1000, 2080, 150), u"Remarks"_s, u"Ramp to be kept clear from 8 to 10 o'clock"_s);
}

void draw_table(QPainter &painter)
{
    const int bottom = TableTop + RowHeight * (RowCount + 1);
    painter.fillRect(QRect(Left, TableTop, Right - Left, RowHeight), Qt::black);
    painter.setPen(QPen(Qt::black, 4));
    for (int row = 1; row <= RowCount + 1; ++row)
        painter.drawLine(Left, TableTop + row * RowHeight, Right, TableTop + row * RowHeight);
    for (const int x : Columns)
        painter.drawLine(x, TableTop, x, bottom);

    painter.setPen(Qt::white);
    painter.setFont(sans(9, true));
    for (std::size_t i = 0; i < Captions.size(); ++i)
        painter.drawText(Columns[i] + 24, TableTop + 70, QString::fromLatin1(Captions[i]));

    painter.setPen(Qt::black);
    painter.setFont(typed(10));
    int top = TableTop + RowHeight;
    for (const Item &item : Items) {
        const std::array cells{item.number, item.goods, item.quantity, item.price, item.sum};
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const int side = i < 2 ? Qt::AlignLeft : Qt::AlignRight;
            const QRect cell(Columns[i] + 24, top, Columns[i + 1] - Columns[i] - 48, RowHeight);
            painter.drawText(cell, Qt::AlignVCenter | side, QString::fromLatin1(cells[i]));
        }
        top += RowHeight;
    }
}

void draw_total(QPainter &painter)
{
    const int top = TableTop + RowHeight * (RowCount + 1) + 40;
    painter.setPen(QPen(Qt::black, 8));
    painter.drawRect(QRect(Columns[3], top, Right - Columns[3], 130));
    painter.setFont(sans(12, true));
    painter.drawText(QRect(Columns[3] + 30, top, 300, 130), Qt::AlignVCenter, u"Total"_s);
    painter.setFont(typed(13));
    painter.drawText(QRect(Columns[4], top, Right - Columns[4] - 30, 130), Qt::AlignVCenter | Qt::AlignRight,
                     u"443.40"_s);
}

void draw_check_box(QPainter &painter, int y, const QString &caption, bool ticked)
{
    painter.setPen(QPen(Qt::black, 5));
    painter.drawRect(QRect(Left, y, 56, 56));
    painter.setFont(sans(10));
    painter.drawText(Left + 90, y + 46, caption);
    if (!ticked)
        return;
    painter.setPen(QPen(Qt::black, 9, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(Left + 8, y + 26, Left + 26, y + 50);
    painter.drawLine(Left + 26, y + 50, Left + 78, y - 18);
}

void draw_bar_code(QPainter &painter, const QRect &area)
{
    Chance chance(4711);
    int x = area.left();
    while (x < area.right() - 24) {
        const int bar = 6 + 6 * static_cast<int>(chance.next() * 3);
        painter.fillRect(QRect(x, area.top(), bar, area.height()), Qt::black);
        x += bar + 6 + 6 * static_cast<int>(chance.next() * 3);
    }
}

void draw_foot(QPainter &painter)
{
    draw_check_box(painter, 2640, u"All boxes undamaged"_s, true);
    draw_check_box(painter, 2740, u"Boxes damaged, numbers:"_s, false);
    draw_check_box(painter, 2840, u"Second copy returned with the driver"_s, true);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawLine(Left + 760, 2796, Left + 1240, 2796);
    painter.drawLine(1480, 3130, Right, 3130);
    painter.setFont(sans(8));
    painter.drawText(1480, 3175, u"Stamp of the receiver"_s);
    draw_bar_code(painter, QRect(Left, 3030, 760, 150));
    painter.setFont(typed(9));
    painter.drawText(Left, 3230, u"4711-1-2"_s);
}

/// What dust on the glass leaves on a page of black and white.
void add_specks(QImage &page)
{
    constexpr int Specks = 260;
    Chance chance(99);
    QPainter painter(&page);
    for (int i = 0; i < Specks; ++i) {
        const int x = static_cast<int>(chance.next() * page.width());
        const int y = static_cast<int>(chance.next() * page.height());
        const int size = 1 + static_cast<int>(chance.next() * 4);
        painter.fillRect(QRect(x, y, size, size), Qt::black);
    }
}

} // namespace

QImage form_page()
{
    QImage page = blank_a4(DotsPerInch, Qt::white);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    draw_head(painter);
    draw_fields(painter);
    draw_table(painter);
    draw_total(painter);
    draw_foot(painter);
    painter.end();

    QImage scan = laid_askew(page, 0.35, Qt::white);
    add_specks(scan);
    return scan.convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::ThresholdDither);
}

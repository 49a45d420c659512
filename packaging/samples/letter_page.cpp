#include "sample_pages.h"
#include "scan_effects.h"

#include <QPainter>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int DotsPerInch = 150;
constexpr QColor Paper(247, 239, 220);
constexpr QColor Ink(44, 42, 52);
constexpr QColor HeadInk(38, 84, 124);
constexpr QColor StampInk(178, 48, 52);

constexpr std::array TypedLines{
    "14 March",
    "",
    "Our reference:   Order 4711",
    "Your enquiry:    Paper and cartons for the spring",
    "",
    "",
    "To the purchasing department,",
    "",
    "thank you for your order. We confirm that the following goods",
    "are packed and will leave our store on Thursday:",
    "",
    "    12 boxes    copying paper, white, A4, 80 g",
    "     3 boxes    copying paper, ivory, A4, 100 g",
    "    40 pieces   folding cartons, medium",
    "     2 rolls    brown tape, 50 mm",
    "",
    "The second delivery, 8 boxes of envelopes with window, follows",
    "in the last week of the month. As agreed, both deliveries are",
    "put on one invoice, payable within thirty days.",
    "",
    "Please have the ramp at gate 2 clear between eight and ten",
    "o'clock. The driver brings the form in two copies; one of them",
    "stays with you, the other comes back to us with your stamp.",
    "",
    "Should a box be damaged, note its number on the form before",
    "you sign. We replace it without further questions.",
    "",
    "",
    "Yours faithfully,",
    "",
    "",
    "",
    "Dispatch office",
};

void draw_head(QPainter &painter)
{
    painter.fillRect(QRect(150, 130, 62, 62), HeadInk);
    painter.fillRect(QRect(168, 148, 62, 62), Paper);
    painter.fillRect(QRect(172, 152, 54, 54), HeadInk.lighter(170));
    painter.setPen(HeadInk);
    painter.setFont(page_font(u"DejaVu Serif"_s, 20, DotsPerInch, true));
    painter.drawText(256, 172, u"Riverside Paper Store"_s);
    painter.setFont(page_font(u"DejaVu Serif"_s, 9, DotsPerInch));
    painter.drawText(258, 204, u"Papers, cartons and office supplies"_s);
    painter.fillRect(QRect(150, 232, 940, 3), HeadInk);
}

void draw_typed_lines(QPainter &painter)
{
    painter.setFont(page_font(u"DejaVu Sans Mono"_s, 10.5, DotsPerInch));
    Chance chance(17);
    int baseline = 330;
    for (const char *const line : TypedLines) {
        int x = 150;
        for (const QChar letter : QString::fromLatin1(line)) {
            // A type lever strikes never twice with the same force, nor at quite the same height.
            painter.setPen(Ink.lighter(qRound(100 + 70 * chance.next())));
            painter.drawText(QPointF(x, baseline + 1.4 * chance.next()), QString(letter));
            x += 14;
        }
        baseline += 36;
    }
}

void draw_stamp(QPainter &painter)
{
    painter.save();
    painter.translate(905, 345);
    painter.rotate(-7);
    painter.setOpacity(0.75);
    painter.setPen(QPen(StampInk, 5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRect(-150, -55, 300, 110), 12, 12);
    painter.setFont(page_font(u"DejaVu Sans"_s, 17, DotsPerInch, true));
    painter.drawText(QRect(-150, -50, 300, 62), Qt::AlignCenter, u"RECEIVED"_s);
    painter.setFont(page_font(u"DejaVu Sans"_s, 11, DotsPerInch));
    painter.drawText(QRect(-150, 6, 300, 40), Qt::AlignCenter, u"16 March"_s);
    painter.restore();
}

void draw_holes_and_folds(QPainter &painter)
{
    painter.setPen(Qt::NoPen);
    for (const int y : {640, 1112}) {
        painter.setBrush(QColor(176, 168, 150)); // the shadow of the hole's edge
        painter.drawEllipse(QPointF(66, y), 18, 18);
        painter.setBrush(QColor(236, 236, 232)); // the lid behind the sheet
        painter.drawEllipse(QPointF(68, y + 2), 16, 16);
    }
    for (const int y : {584, 1169}) {
        painter.fillRect(QRect(0, y, 1240, 2), QColor(228, 219, 199));
        painter.fillRect(QRect(0, y + 2, 1240, 1), QColor(252, 247, 234));
    }
}

/// From @p dark to the paper in @p count steps.
void append_ramp(QList<QRgb> &colors, QColor dark, int count)
{
    for (int i = 0; i < count; ++i) {
        const double share = static_cast<double>(i) / count;
        const auto mixed = [share](int from, int to) { return qRound(std::lerp(from, to, share)); };
        colors << qRgb(mixed(dark.red(), Paper.red()), mixed(dark.green(), Paper.green()),
                       mixed(dark.blue(), Paper.blue()));
    }
}

/// As few colours as the page needs, which is what keeps the file small in spite of its grain.
QList<QRgb> page_colors()
{
    QList<QRgb> colors;
    append_ramp(colors, Ink, 28);
    append_ramp(colors, HeadInk, 10);
    append_ramp(colors, StampInk, 10);
    colors << Paper.rgb() << qRgb(252, 247, 234) << qRgb(236, 236, 232);
    return colors;
}

} // namespace

QImage letter_page()
{
    QImage page = blank_a4(DotsPerInch, Paper);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    draw_holes_and_folds(painter);
    draw_head(painter);
    draw_typed_lines(painter);
    draw_stamp(painter);
    painter.end();

    QImage scan = laid_askew(page, -0.7, QColor(236, 236, 232));
    add_grain_and_shade(scan, 1.6, 60, 4711);
    return scan.convertToFormat(QImage::Format_Indexed8, page_colors(), Qt::ThresholdDither | Qt::AvoidDither);
}

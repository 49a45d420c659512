#include "ImagePropertiesDialog.h"

#include "dialog_frame.h"

#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

ImagePropertiesDialog::ImagePropertiesDialog(const QImage &image, double zoom, QWidget *parent, const char *name,
                                             bool modal) :
    QDialog(parent)
{
    identify_dialog(*this, tr("Image Properties"), name, modal);

    auto *const grid = new QGridLayout(this); // adopts every widget added below
    const auto addRow = [grid](int row, const QString &caption, const QString &value) {
        auto *const captionLabel = new QLabel(caption);
        auto *const valueLabel = new QLabel(value);
        captionLabel->setBuddy(valueLabel);
        grid->addWidget(captionLabel, row, 0);
        grid->addWidget(valueLabel, row, 1);
    };
    addRow(0, tr("Width [pixels]"), QString::number(image.width()));
    addRow(1, tr("Height [pixels]"), QString::number(image.height()));
    addRow(2, tr("Bit Depth"), QString::number(image.depth()));
    addRow(3, tr("Colors in Palette"), QString::number(image.colorCount()));
    addRow(4, tr("Grayscale"), image.isGrayscale() ? tr("Yes") : tr("No"));
    addRow(5, tr("Bytes (not including palette)"), QString::number(image.sizeInBytes()));
    addRow(6, tr("Bytes per line"), QString::number(image.bytesPerLine()));
    addRow(7, tr("Zoom coefficient"), QString::number(zoom));

    auto *const okButton = new QPushButton(tr("OK"));
    okButton->setObjectName("my_ok_btn"_L1);
    grid->addWidget(okButton, 9, 1);
    connect(okButton, &QPushButton::clicked, this, &QDialog::accept);
}

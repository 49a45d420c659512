#include "PropertiesDialog.h"

#include "ui_PropertiesDialog.h"

#include <QImage>

namespace {

constexpr int LargestPaletteDepth = 8; // bits a pixel
constexpr int BytesPerColor = 4;
constexpr int HeaderBytes = 32;

/// What the page takes, with its palette and a fixed share for what else belongs to one.
qsizetype byte_count(const QImage &image)
{
    if (image.depth() > LargestPaletteDepth)
        return image.sizeInBytes();
    return image.sizeInBytes() + qsizetype{image.colorCount()} * BytesPerColor + HeaderBytes;
}

} // namespace

PropertiesDialog::PropertiesDialog(const QImage &image, double zoom, QWidget *parent) :
    QDialog(parent),
    ui(std::make_unique<Ui::PropertiesDialog>())
{
    ui->setupUi(this);
    ui->WidthValue->setNum(image.width());
    ui->HeightValue->setNum(image.height());
    ui->BitDepthValue->setNum(image.depth());
    ui->ColorsInPalleteValue->setNum(image.colorCount());
    ui->GrayScaleValue->setText(image.isGrayscale() ? tr("Yes") : tr("No"));
    ui->BytesValue->setText(QString::number(byte_count(image))); // setNum() would stop at 2 GiB
    ui->BytesPerLineValue->setNum(static_cast<int>(image.bytesPerLine()));
    ui->ZoomValue->setNum(zoom);
}

PropertiesDialog::~PropertiesDialog() = default;

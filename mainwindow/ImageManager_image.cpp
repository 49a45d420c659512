#include "CommandTab.h"
#include "FrontTabScope.h"
#include "headroom.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "InputFixedDialog.h"
#include "pixel_operations.h"
#include "PropertiesDialog.h"
#include "Q3Canvas.h"
#include "ResizeDialog.h"
#include "SimplePreviewDialog.h"

#include <QLayout>

#include <algorithm>
#include <cmath>

namespace {

enum PreviewKind : int { PlainPreview = 0, SliderPreview = 1 };

constexpr double ScaleStep = 0.1;
constexpr double LargestScale = 3.0;

/// The largest factor that the scale dialogs offer for a page: what memory allows, on a tenth.
/// @param bothSides  the factor applies to width and height
double largest_scale(const QImage &page, bool bothSides)
{
    double ratio = page.isNull() ? 1.0 : double(free_ram_or_swap_limit()) / (double(page.width()) * page.height());
    if (bothSides)
        ratio = std::sqrt(ratio);
    return std::clamp(ScaleStep * std::floor(ratio / ScaleStep), 1.0, LargestScale);
}

/// A side after scaling; the factor is taken over the last pixel, not over the side.
int scaled_side(int side, double factor)
{
    return static_cast<int>((side - 1) * factor) + 1;
}

} // namespace

/// Shows a dialog about the current tab, which is the current one afterwards too. False also if the tab has gone:
/// what is typed right behind the key that accepts a dialog is heard before this call returns.
bool ImageManager::isAccepted(QDialog &dialog)
{
    const CommandTab tab(currentView());
    const FrontTabScope front(tabWidget);
    return dialog.exec() == QDialog::Accepted && tab;
}

void ImageManager::previewEdit(const QString &title, ImageTransform transform, bool (ImageDocument::*operation)(uint))
{
    SimplePreviewDialog dialog(title, currentPageImage(), transform, this, PlainPreview, {}, nullptr, true);
    if (isAccepted(dialog))
        runEdit([this, operation](uint page) { return (currentDocument()->*operation)(page); });
}

void ImageManager::previewEdit(const QString &title, const QString &label, ImageTransform transform,
                               bool (ImageDocument::*operation)(uint, int))
{
    const PreviewParameters parameters{.min = -100, .max = 100, .init = 0, .step = 1, .label = label};
    SimplePreviewDialog dialog(title, currentPageImage(), transform, this, SliderPreview, parameters, nullptr, true);
    if (!isAccepted(dialog))
        return;
    int percent = 0;
    dialog.value(&percent);
    runEdit([this, operation, percent](uint page) { return (currentDocument()->*operation)(page, percent); });
}

void ImageManager::image_depth_1_bit()
{
    previewEdit(tr("Image Depth 1 bit"), trans_depth_1_bit, &ImageDocument::depth_1_bit);
}

void ImageManager::image_depth_8_bit()
{
    previewEdit(tr("Image Depth 8 bit"), trans_depth_8_bit, &ImageDocument::depth_8_bit);
}

void ImageManager::image_depth_32_bit()
{
    previewEdit(tr("Image Depth 32 bit"), trans_depth_32_bit, &ImageDocument::depth_32_bit);
}

void ImageManager::image_invert()
{
    previewEdit(tr("Invert"), trans_invert, &ImageDocument::invert);
}

void ImageManager::image_brightness()
{
    previewEdit(tr("Brightness"), tr("Set Brightness"), trans_brightness, &ImageDocument::brightness);
}

void ImageManager::image_contrast()
{
    previewEdit(tr("Contrast"), tr("Set Contrast"), trans_contrast, &ImageDocument::contrast);
}

void ImageManager::image_rotate_90()
{
    previewEdit(tr("Rotate 90 degrees CCW"), trans_rotate_90, &ImageDocument::rotate_90);
}

void ImageManager::image_rotate_180()
{
    previewEdit(tr("Rotate 180 degrees"), trans_rotate_180, &ImageDocument::rotate_180);
}

void ImageManager::image_rotate_270()
{
    previewEdit(tr("Rotate 90 degrees CW"), trans_rotate_270, &ImageDocument::rotate_270);
}

void ImageManager::image_flip_vertically()
{
    previewEdit(tr("Flip Vertically"), trans_flip_vertically, &ImageDocument::flip_vertically);
}

void ImageManager::image_flip_horizontally()
{
    previewEdit(tr("Flip Horizontally"), trans_flip_horizontally, &ImageDocument::flip_horizontally);
}

void ImageManager::scalePage(const ScaleCommand &command)
{
    const QImage page = currentPageImage();
    InputFixedDialog dialog(command.caption, command.label, command.prompt, ScaleStep,
                            largest_scale(page, command.horizontal && command.vertical), 1.0, ScaleStep, 1, this,
                            command.name, true);
    if (!isAccepted(dialog))
        return;

    const double x = command.horizontal ? dialog.value() : 1.0;
    const double y = command.vertical ? dialog.value() : 1.0;
    runEdit([this, x, y](uint number) {
        Q3Canvas *const canvas = currentView()->canvas();
        const QSize size(scaled_side(canvas->width(), x), scaled_side(canvas->height(), y));
        const bool ok = currentDocument()->scale(number, x, y);
        canvas->resize(size.width(), size.height());
        return ok;
    });
}

void ImageManager::image_scale_proportionally()
{
    scalePage({.caption = tr("Scale Proportionally"),
               .label = tr("Proportional Scale"),
               .prompt = tr("Number to multiple actual image height and width on"),
               .name = "image_scale_p_dialog",
               .horizontal = true,
               .vertical = true});
}

void ImageManager::image_scale_vertically()
{
    scalePage({.caption = tr("Scale Vertically"),
               .label = tr("Vertical Scale"),
               .prompt = tr("Number to multiple actual image height on"),
               .name = "image_scale_v_dialog",
               .horizontal = false,
               .vertical = true});
}

void ImageManager::image_scale_horizontally()
{
    scalePage({.caption = tr("Scale Horizontally"),
               .label = tr("Horizontal Scale"),
               .prompt = tr("Number to multiple actual image width on"),
               .name = "image_scale_h_dialog",
               .horizontal = true,
               .vertical = false});
}

void ImageManager::image_resize()
{
    ResizeDialog dialog(currentPageImage(), this, "image_resize_p_dialog", true);
    QSize size;
    if (!isAccepted(dialog) || !dialog.result(&size))
        return;

    runEdit([this, size](uint page) {
        const bool ok = currentDocument()->resize(page, size.width(), size.height());
        currentView()->canvas()->resize(size.width(), size.height()); // also when it has failed
        return ok;
    });
}

void ImageManager::image_crop()
{
    runEdit([this](uint /*page*/) { return currentView()->cropSelection(); });
}

void ImageManager::image_properties()
{
    const CommandTab tab(currentView());
    if (!tab)
        return;
    PropertiesDialog dialog(currentPageImage(), tab.view()->currentFactor(), this);
    if (QLayout *const layout = dialog.layout())
        layout->setSizeConstraint(QLayout::SetFixedSize);
    dialog.exec();
}

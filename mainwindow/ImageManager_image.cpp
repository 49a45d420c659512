#include "CommandTab.h"
#include "FrontTabScope.h"
#include "headroom.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "InputFixedDialog.h"
#include "page_operations.h"
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

/// Shows what an operation makes of the page, and does it if that is accepted.
void ImageManager::previewEdit(PageChange change)
{
    const PageOperation &operation = page_operation(change);
    PreviewParameters parameters;
    if (const auto &range = operation.range)
        parameters = {
            .min = range->min, .max = range->max, .init = range->init, .step = range->step, .label = tr(range->label)};
    SimplePreviewDialog dialog(tr(operation.title), currentPageImage(), operation.preview, this,
                               operation.range ? SliderPreview : PlainPreview, parameters, nullptr, true);
    if (!isAccepted(dialog))
        return;
    int percent = 0;
    dialog.value(&percent);
    runEdit([this, change, percent](uint page) { return currentDocument()->change(page, change, percent); });
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

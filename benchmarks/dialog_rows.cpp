// The preview dialogs under the hand, against bare dialogs of the same widgets.

#include "ImageManager.h"
#include "measured_pages.h"
#include "painted_widgets.h"
#include "plain_ways.h"
#include "Row.h"
#include "SimplePreviewDialog.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QSlider>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Tiff = "a4_600_tiff/page.tif";
constexpr int LargestPercent = 100;
constexpr int TicksOfARound = 40;

/// A picture in a group, a slider with three numbers, and two buttons.
class BareDialog : public QDialog
{
public:
    BareDialog(const QImage &image, QWidget *parent) :
        QDialog(parent),
        pixmap(QPixmap::fromImage(image)),
        picture([this](QPainter &painter) { painter.drawPixmap(0, 0, pixmap); })
    {
        constexpr int side = 161;
        auto *const group = new QGroupBox(u"Preview"_s);
        auto *const groupLayout = new QGridLayout(group);
        picture.setFixedSize(side, side);
        groupLayout->addWidget(&picture, 0, 0);
        auto *const layout = new QGridLayout(this);
        layout->addWidget(group, 0, 0, 3, 1);
        layout->addWidget(new QLabel(u"Set Brightness"_s), 0, 1);
        layout->addWidget(new QLabel(QString::number(-LargestPercent)), 0, 2);
        layout->addWidget(&number, 0, 3);
        layout->addWidget(new QLabel(QString::number(LargestPercent)), 0, 4);
        slider.setRange(-LargestPercent, LargestPercent);
        layout->addWidget(&slider, 1, 2, 1, 3);
        layout->addWidget(new QPushButton(u"OK"_s), 2, 3);
        layout->addWidget(new QPushButton(u"Cancel"_s), 2, 4);
        connect(&slider, &QSlider::valueChanged, &number, qOverload<int>(&QLabel::setNum));
    }

    QPixmap pixmap;
    BareWidget picture;
    QLabel number{u"0"_s};
    QSlider slider{Qt::Horizontal};
};

/// Looks for the first painting of a dialog's picture and then closes the dialog.
class FirstPicture : public QObject
{
public:
    using IsPicture = bool (*)(QObject *object);

    explicit FirstPicture(IsPicture isPicture) : isPictureOf(isPicture) { qApp->installEventFilter(this); }

    /// Seconds of @p open, which runs the dialog, until the picture has been painted.
    template <typename Open> [[nodiscard]] std::optional<double> seconds(const Open &open)
    {
        painted.reset();
        isAwaited = true;
        const auto start = std::chrono::steady_clock::now();
        open();
        return painted ? std::optional(std::chrono::duration<double>(*painted - start).count()) : std::nullopt;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (isAwaited && event->type() == QEvent::Paint && isPictureOf(watched)) {
            isAwaited = false;
            auto *const dialog = qobject_cast<QDialog *>(qobject_cast<QWidget *>(watched)->window());
            // Queued: the painting of the whole dialog comes first.
            QMetaObject::invokeMethod(
                dialog,
                [this, dialog] {
                    painted = std::chrono::steady_clock::now();
                    dialog->reject();
                },
                Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    IsPicture isPictureOf;
    bool isAwaited = false;
    std::optional<std::chrono::steady_clock::time_point> painted;
};

void settle()
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

Side open_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto window = std::make_shared<ImageManager>();
        window->show();
        if (!window->load_file(input_path(Tiff, surroundings), u"TIFF"_s, false))
            qFatal("the window does not open the page");
        const auto picture = std::make_shared<FirstPicture>(
            [](QObject *object) { return qobject_cast<Thumbnail *>(object) != nullptr; });
        return [=] {
            settle();
            return picture->seconds([&] { window->findChild<QAction *>(u"image_brightness"_s)->trigger(); });
        };
    };
    return {u"ImageManager"_s, Side::OwnProcess, prepare};
}

Side bare_open_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto window = std::make_shared<QMainWindow>();
        window->show();
        const QImage reduced = reduced_copy(load_page(32, surroundings));
        const auto picture = std::make_shared<FirstPicture>(
            [](QObject *object) { return dynamic_cast<BareWidget *>(object) != nullptr; });
        return [=] {
            settle();
            return picture->seconds([&] { BareDialog(reduced, window.get()).exec(); });
        };
    };
    return {u"bare dialog"_s, Side::OwnProcess, prepare};
}

/// Mean seconds of a tick of the slider until the picture has been painted.
double seconds_of_tick(Stage &stage, QSlider &slider)
{
    double seconds = 0;
    for (int i = 1; i <= TicksOfARound; ++i)
        seconds += stage.secondsUntilPainted([&] { slider.setValue(slider.value() == i ? -i : i); });
    return seconds / TicksOfARound;
}

Side tick_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const PreviewParameters parameters{
            .min = -LargestPercent, .max = LargestPercent, .init = 0, .step = 1, .label = u"Set Brightness"_s};
        const auto dialog =
            std::make_shared<SimplePreviewDialog>(u"Brightness"_s, load_page(32, surroundings), trans_brightness,
                                                  nullptr, SimplePreviewDialog::PreviewWithSlider, parameters);
        const auto stage = std::make_shared<Stage>(dialog->findChild<Thumbnail *>());
        return [=] {
            stage->bringUp();
            return seconds_of_tick(*stage, *dialog->findChild<QSlider *>());
        };
    };
    return {u"SimplePreviewDialog"_s, Side::OwnProcess, prepare};
}

Side plain_tick_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const QImage reduced = reduced_copy(load_page(32, surroundings));
        const auto dialog = std::make_shared<BareDialog>(reduced, nullptr);
        QObject::connect(&dialog->slider, &QSlider::valueChanged, dialog.get(),
                         [reduced, bare = dialog.get()](int percent) {
                             bare->pixmap = QPixmap::fromImage(brightened_plainly(reduced, percent));
                             bare->picture.update();
                         });
        const auto stage = std::make_shared<Stage>(&dialog->picture);
        return [=] {
            stage->bringUp();
            return seconds_of_tick(*stage, dialog->slider);
        };
    };
    return {u"QColor per pixel"_s, Side::OwnProcess, prepare};
}

} // namespace

QList<Row> dialog_rows()
{
    return {
        {41,
         u"preview dialog, action to painted"_s,
         {{u"bare dialog"_s, Bar::SecondsRatio, 1.5, open_side(), bare_open_side()}}},
        {42,
         u"slider tick to preview painted"_s,
         {{u"QColor per pixel"_s, Bar::SecondsRatio, 1.1, tick_side(), plain_tick_side()}}},
    };
}

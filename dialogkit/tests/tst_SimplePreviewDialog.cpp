#include "pictures.h"
#include "SimplePreviewDialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb Grey = 0xff808080;

/// What the transformation of these tests was asked for; no value stands for a null pointer.
std::vector<std::optional<int>> askedFor;

/// Paints red with the parameter as its strength, blue without one.
bool paint(const QImage &src, QImage &dst, const int *parameter)
{
    askedFor.push_back(parameter ? std::optional(*parameter) : std::nullopt);
    dst = QImage(src.size(), QImage::Format_RGB32);
    dst.fill(parameter ? qRgb(100 + *parameter, 0, 0) : qRgb(0, 0, 255));
    return true;
}

/// Refuses every positive parameter.
bool refuse_positive(const QImage &src, QImage &dst, const int *parameter)
{
    return *parameter <= 0 && paint(src, dst, parameter);
}

const PreviewParameters brightness{.min = -100, .max = 100, .init = 0, .step = 1, .label = u"Set Brightness"_s};

/// A dialog on a grey page, and what a test wants to know of it.
class Preview : public SimplePreviewDialog
{
public:
    explicit Preview(ImageTransform transform, int kind = PreviewWithSlider,
                     const PreviewParameters &parameters = brightness) :
        SimplePreviewDialog(u"Brightness"_s, solid_page({300, 300}, Grey), transform, nullptr, kind, parameters,
                            "brightness_dialog", true)
    {
    }

    [[nodiscard]] QSlider *slider() const { return findChild<QSlider *>(u"int_slider"_s); }
    [[nodiscard]] QPushButton *okButton() const { return findChild<QPushButton *>(u"my_ok_btn"_s); }
    [[nodiscard]] QGridLayout *grid() const { return findChild<QGridLayout *>(u"DLayout"_s); }
    [[nodiscard]] QRgb shownColor() const { return findChild<Thumbnail *>()->grab().toImage().pixel(80, 80); }

    /// Row and column of the widget or of the layout around it.
    [[nodiscard]] QPoint cellOf(const QWidget *widget) const
    {
        for (int i = 0; i < grid()->count(); ++i) {
            const QLayoutItem *const item = grid()->itemAt(i);
            const QLayout *const inner = grid()->itemAt(i)->layout();
            if (item->widget() != widget && !(inner && inner->indexOf(widget) >= 0))
                continue;
            int row = 0, column = 0, rows = 0, columns = 0;
            grid()->getItemPosition(i, &row, &column, &rows, &columns);
            return {column, row};
        }
        return {-1, -1};
    }
};

} // namespace

class tst_SimplePreviewDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { askedFor.clear(); }

    void saysWhatItIsFor();
    void isLaidOutOnAGridOfSixPixels();
    void showsAPreviewInATitledBox();
    void previewStandsInTheMiddleOfItsBox();
    void previewStandsOnTheGroundOfItsBox();
    void previewIsDescribedByItsValueAndItsSizes();
    void previewOfThePlainKindIsDescribedByItsSizes();
    void sliderHasAPixelForEachValue();
    void plainKindHasNoSliderAndItsButtonsBelowThePreview();
    void sliderKindHasItsSliderBesideThePreviewAndItsButtonsBelowThat();
    void plainKindPreviewsAtOnceWithoutAParameter();
    void sliderKindPreviewsAtOnceWithItsFirstValue();
    void everyTickOfTheSliderPreviewsOnce();
    void sliderTakesItsRangeFromTheParameters();
    void valueIsTheSliders();
    void valueOfThePlainKindIsLeftAlone();
    void refusedTransformationLeavesTheLastPreview();
    void unknownKindIsTreatedAsPlain();
    void brightnessPreviewGetsLighterAndDarker();
    void isAsLargeAsItsLayoutAsks();
    void hearsKeysFirstOnItsSlider();
    void closesByReturnAndEscape();
};

void tst_SimplePreviewDialog::saysWhatItIsFor()
{
    const Preview dialog(paint);

    QCOMPARE(dialog.windowTitle(), u"Brightness"_s);
    QCOMPARE(dialog.objectName(), u"brightness_dialog"_s);
    QVERIFY(dialog.isModal());
    QVERIFY(dialog.windowFlags().testFlags(Qt::WindowTitleHint | Qt::WindowSystemMenuHint));
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

void tst_SimplePreviewDialog::isLaidOutOnAGridOfSixPixels()
{
    const Preview dialog(paint);

    QCOMPARE(dialog.grid()->contentsMargins(), QMargins(6, 6, 6, 6));
    QCOMPARE(dialog.grid()->spacing(), 6);
    QCOMPARE(dialog.grid()->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
}

void tst_SimplePreviewDialog::showsAPreviewInATitledBox()
{
    Preview dialog(paint);
    dialog.show();
    auto *const group = dialog.findChild<QGroupBox *>();
    auto *const thumbnail = dialog.findChild<Thumbnail *>();

    QCOMPARE(group->title(), u"Preview"_s);
    QCOMPARE(thumbnail->parentWidget(), group);
    QVERIFY(thumbnail->isVisible());
    QCOMPARE(thumbnail->accessibleName(), u"Preview"_s);
    QCOMPARE(thumbnail->x(), group->contentsRect().x() + 6);
    QCOMPARE(thumbnail->y(), group->contentsRect().y() + 6);
}

void tst_SimplePreviewDialog::previewStandsInTheMiddleOfItsBox()
{
    Preview dialog(paint, SimplePreviewDialog::PreviewOnly);
    dialog.resize(200, dialog.height()); // wider than the preview asks for
    dialog.show();
    const QRect box = dialog.findChild<QGroupBox *>()->contentsRect();
    const QRect preview = dialog.findChild<Thumbnail *>()->geometry();

    QVERIFY(box.width() > preview.width() + 12);
    QVERIFY(std::abs((preview.left() - box.left()) - (box.right() - preview.right())) <= 1);
    QCOMPARE(preview.size(), QSize(161, 161));
}

void tst_SimplePreviewDialog::previewStandsOnTheGroundOfItsBox()
{
    SimplePreviewDialog dialog(u"Brightness"_s, solid_page({300, 100}, Grey), paint, nullptr,
                               SimplePreviewDialog::PreviewOnly, {}, "brightness_dialog", true);
    dialog.show();
    const QRect preview = dialog.findChild<Thumbnail *>()->geometry();

    const QImage box = dialog.findChild<QGroupBox *>()->grab().toImage();

    const QRgb ground = box.pixel(preview.left() - 3, preview.top() + 5);
    for (int x = preview.left(); x <= preview.right(); ++x)
        QCOMPARE(box.pixel(x, preview.top() + 5), ground);
    QVERIFY(box.pixel(preview.center()) != ground);
}

void tst_SimplePreviewDialog::previewIsDescribedByItsValueAndItsSizes()
{
    Preview dialog(refuse_positive);
    dialog.show();
    const auto *thumbnail = dialog.findChild<Thumbnail *>();
    QCOMPARE(thumbnail->accessibleDescription(), u"Brightness 0. Page of 300 x 300 pixels, shown at 160 x 160."_s);

    QTest::keyClick(dialog.slider(), Qt::Key_Left);
    QCOMPARE(thumbnail->accessibleDescription(), u"Brightness -1. Page of 300 x 300 pixels, shown at 160 x 160."_s);

    QTest::keyClick(dialog.slider(), Qt::Key_End); // refused, so the last picture stands
    QCOMPARE(thumbnail->accessibleDescription(), u"Brightness -1. Page of 300 x 300 pixels, shown at 160 x 160."_s);
}

void tst_SimplePreviewDialog::previewOfThePlainKindIsDescribedByItsSizes()
{
    const Preview dialog(paint, SimplePreviewDialog::PreviewOnly);

    QCOMPARE(dialog.findChild<Thumbnail *>()->accessibleDescription(),
             u"Page of 300 x 300 pixels, shown at 160 x 160."_s);
}

void tst_SimplePreviewDialog::sliderHasAPixelForEachValue()
{
    Preview dialog(paint);
    dialog.show();

    QVERIFY(dialog.slider()->width() >= 220);
    QVERIFY(dialog.slider()->minimumWidth() >= 220);
}

void tst_SimplePreviewDialog::plainKindHasNoSliderAndItsButtonsBelowThePreview()
{
    const Preview dialog(paint, SimplePreviewDialog::PreviewOnly);

    QVERIFY(!dialog.slider());
    QCOMPARE(dialog.cellOf(dialog.findChild<QGroupBox *>()), QPoint(0, 0));
    QCOMPARE(dialog.cellOf(dialog.okButton()), QPoint(0, 2));
}

void tst_SimplePreviewDialog::sliderKindHasItsSliderBesideThePreviewAndItsButtonsBelowThat()
{
    const Preview dialog(paint);
    const QWidget *control = dialog.slider();
    while (control->parentWidget() != &dialog)
        control = control->parentWidget();

    QCOMPARE(dialog.cellOf(dialog.findChild<QGroupBox *>()), QPoint(0, 0));
    QCOMPARE(dialog.cellOf(control), QPoint(2, 0));
    QCOMPARE(dialog.cellOf(dialog.okButton()), QPoint(2, 2));
}

void tst_SimplePreviewDialog::plainKindPreviewsAtOnceWithoutAParameter()
{
    const Preview dialog(paint, SimplePreviewDialog::PreviewOnly);

    QCOMPARE(askedFor, std::vector({std::optional<int>()}));
    QCOMPARE(dialog.shownColor(), qRgb(0, 0, 255));
}

void tst_SimplePreviewDialog::sliderKindPreviewsAtOnceWithItsFirstValue()
{
    const Preview dialog(paint, SimplePreviewDialog::PreviewWithSlider, {.min = 0, .max = 9, .init = 5, .label = {}});

    QCOMPARE(askedFor, std::vector({std::optional(5)}));
    QCOMPARE(dialog.shownColor(), qRgb(105, 0, 0));
}

void tst_SimplePreviewDialog::everyTickOfTheSliderPreviewsOnce()
{
    Preview dialog(paint);
    dialog.show();

    QTest::keyClick(dialog.slider(), Qt::Key_Right);
    QTest::keyClick(dialog.slider(), Qt::Key_PageUp);
    QTest::keyClick(dialog.slider(), Qt::Key_Home);

    QCOMPARE(askedFor, std::vector({std::optional(0), std::optional(1), std::optional(2), std::optional(-100)}));
    QCOMPARE(dialog.shownColor(), qRgb(0, 0, 0));
}

void tst_SimplePreviewDialog::sliderTakesItsRangeFromTheParameters()
{
    const Preview dialog(paint, SimplePreviewDialog::PreviewWithSlider,
                         {.min = -7, .max = 9, .init = 5, .step = 3, .label = u"Größe"_s});

    QCOMPARE(dialog.slider()->minimum(), -7);
    QCOMPARE(dialog.slider()->maximum(), 9);
    QCOMPARE(dialog.slider()->value(), 5);
    QCOMPARE(dialog.slider()->pageStep(), 3);
    QCOMPARE(dialog.slider()->accessibleName(), u"Größe"_s);
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    QVERIFY(
        std::any_of(labels.cbegin(), labels.cend(), [](const QLabel *label) { return label->text() == u"Größe"_s; }));
}

void tst_SimplePreviewDialog::valueIsTheSliders()
{
    Preview dialog(paint);
    dialog.show();
    int value = 0;

    dialog.value(&value);
    QCOMPARE(value, 0);

    QTest::keyClick(dialog.slider(), Qt::Key_Left);
    dialog.value(&value);
    QCOMPARE(value, -1);
}

void tst_SimplePreviewDialog::valueOfThePlainKindIsLeftAlone()
{
    const Preview dialog(paint, SimplePreviewDialog::PreviewOnly);
    int value = 17;

    dialog.value(&value);

    QCOMPARE(value, 17);
}

void tst_SimplePreviewDialog::refusedTransformationLeavesTheLastPreview()
{
    Preview dialog(refuse_positive);
    dialog.show();

    QTest::keyClick(dialog.slider(), Qt::Key_Right);

    QCOMPARE(dialog.slider()->value(), 1);
    QCOMPARE(dialog.shownColor(), qRgb(100, 0, 0));
}

void tst_SimplePreviewDialog::unknownKindIsTreatedAsPlain()
{
    const Preview dialog(paint, 2);
    int value = 17;

    dialog.value(&value);

    QCOMPARE(value, 17);
    QVERIFY(!dialog.slider());
    QVERIFY(dialog.okButton());
}

void tst_SimplePreviewDialog::brightnessPreviewGetsLighterAndDarker()
{
    Preview dialog(trans_brightness);
    dialog.show();
    QCOMPARE(dialog.shownColor(), Grey);

    QTest::keyClick(dialog.slider(), Qt::Key_End);
    QVERIFY(qRed(dialog.shownColor()) >= 254); // twice as light as middle grey

    QTest::keyClick(dialog.slider(), Qt::Key_Home);
    QCOMPARE(dialog.shownColor(), qRgb(64, 64, 64)); // half as light
}

void tst_SimplePreviewDialog::isAsLargeAsItsLayoutAsks()
{
    const Preview plain(paint, SimplePreviewDialog::PreviewOnly);
    const Preview withSlider(paint);

    for (const Preview *const dialog : {&plain, &withSlider})
        QCOMPARE(dialog->size(), QSize(std::max(200, dialog->sizeHint().width()), dialog->sizeHint().height()));
}

void tst_SimplePreviewDialog::hearsKeysFirstOnItsSlider()
{
    Preview dialog(paint);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));

    QCOMPARE(dialog.focusWidget(), dialog.slider());
}

void tst_SimplePreviewDialog::closesByReturnAndEscape()
{
    Preview dialog(paint);

    dialog.show();
    QTest::keyClick(dialog.slider(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());

    dialog.show();
    QTest::keyClick(dialog.slider(), Qt::Key_Escape);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QVERIFY(!dialog.isVisible());
}

QTEST_MAIN(tst_SimplePreviewDialog)
#include "tst_SimplePreviewDialog.moc"

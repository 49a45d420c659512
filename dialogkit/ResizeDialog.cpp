#include "ResizeDialog.h"

#include "dialog_frame.h"
#include "entered_size.h"
#include "headroom.h"
#include "Q3GroupBox.h"

#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int MinimumWidth = 200;

QLineEdit *add_number_edit(Q3GroupBox &group, const QString &caption, int number)
{
    auto *const label = new QLabel(caption, &group); // the group box puts both into its next row
    auto *const edit = new QLineEdit(u"%1"_s.arg(number), &group);
    label->setBuddy(edit);
    edit->setAccessibleName(caption);
    return edit;
}

} // namespace

ResizeDialog::ResizeDialog(const QImage &image, QWidget *parent, const char *name, bool modal) :
    QDialog(parent, DialogFlags)
{
    identify_dialog(*this, tr("Resize"), name, modal);

    auto *const group = new Q3GroupBox(2, Qt::Horizontal, tr("Pixel Dimensions"), this);
    group->setInsideMargin(DialogSpacing);
    group->setInsideSpacing(DialogSpacing);
    m_widthEdit = add_number_edit(*group, tr("Width"), image.width());
    m_heightEdit = add_number_edit(*group, tr("Height"), image.height());

    auto *const layout = new QGridLayout(this);
    layout->setObjectName("DLayout"_L1);
    set_dialog_spacing(*layout);
    layout->setAlignment(Qt::AlignTop);
    layout->addWidget(group, 0, 0);
    layout->addLayout(make_button_row(*this).layout, 2, 0);
    fit_size(*this, MinimumWidth);
    m_widthEdit->selectAll(); // the first digit typed takes the place of the old number
}

bool ResizeDialog::result(QSize *size) const
{
    const std::optional<QSize> entered = read_size(m_widthEdit->text(), m_heightEdit->text());
    if (entered)
        *size = *entered;
    return entered.has_value();
}

void ResizeDialog::accept()
{
    const std::optional<QSize> entered = read_size(m_widthEdit->text(), m_heightEdit->text());
    switch (judge_size(entered, free_ram_or_swap_limit())) {
    case SizeVerdict::Good:
        QDialog::accept();
        break;
    case SizeVerdict::NoNumber:
        QMessageBox::warning(this, tr("Invalid Number"),
                             tr("Check if Width and Height\ncontain non-digit characters\nor more than 5 digits."));
        break;
    case SizeVerdict::TooSmall:
        QMessageBox::warning(this, tr("Image side is too small"), tr("Set Width and Height to 10 pixels or more.\n"));
        break;
    case SizeVerdict::TooLarge:
        QMessageBox::warning(this, tr("Resulting size is too big"),
                             tr("Decrease Width and Height\nto fit the image in computer's memory."));
        break;
    }
}

#include "ConfigureToolsDialog.h"

#include "help_launcher.h"
#include "ui_ConfigureToolsDialog.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

using namespace Qt::StringLiterals;

ConfigureToolsDialog::ConfigureToolsDialog(QWidget *parent, Qt::WindowFlags flags) :
    QDialog(parent, flags),
    ui(std::make_unique<Ui::ConfigureToolsDialog>())
{
    ui->setupUi(this);
    resize(size().expandedTo(sizeHint()));

    ui->graphics_editor->setText(graphics_editor());
    ui->graphics_editor_input->setText(graphics_editor_input());
    ui->OCR->setText(OCR());
    ui->OCR_input->setText(OCR_input());
    ui->OCR_output->setText(OCR_output());
    ui->text_editor->setText(text_editor());

    const QRegularExpression upTo512(QRegularExpression::anchoredPattern(u".{1,512}"_s),
                                     QRegularExpression::DotMatchesEverythingOption
                                         | QRegularExpression::UseUnicodePropertiesOption);
    for (QLineEdit *const field :
         {ui->graphics_editor, ui->graphics_editor_input, ui->OCR, ui->OCR_input, ui->OCR_output, ui->text_editor})
        field->setValidator(new QRegularExpressionValidator(upTo512, this));

    connect(ui->buttonHelp, &QPushButton::clicked, this, &ConfigureToolsDialog::slotHelp);
    connect(ui->buttonOk, &QPushButton::clicked, this, &ConfigureToolsDialog::accept);
    connect(ui->buttonCancel, &QPushButton::clicked, this, &QDialog::reject);
}

ConfigureToolsDialog::~ConfigureToolsDialog() = default;

void ConfigureToolsDialog::slotHelp()
{
    showHelp(u"ImageEditorConfigureTools.htm"_s, 0, 1, 0);
}

void ConfigureToolsDialog::accept()
{
    set_graphics_editor(ui->graphics_editor->text());
    set_graphics_editor_input(ui->graphics_editor_input->text());
    set_OCR(ui->OCR->text());
    set_OCR_input(ui->OCR_input->text());
    set_OCR_output(ui->OCR_output->text());
    set_text_editor(ui->text_editor->text());
    QDialog::accept(); // settings that cannot be written are nobody's concern here
}

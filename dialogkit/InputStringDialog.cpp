#include "InputStringDialog.h"

#include "dialog_frame.h"
#include "LineEditControl.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace {

constexpr int MinimumWidth = 200;

} // namespace

InputStringDialog::InputStringDialog(const QString &title, const QString &label, const QString &toolTip,
                                     const QRegularExpression &pattern, QWidget *parent, const char *name, bool modal) :
    QDialog(parent, DialogFlags),
    m_control(new LineEditControl(label.toLocal8Bit().constData(), "", toolTip.toLocal8Bit().constData(), this))
{
    identify_dialog(*this, title, name, modal);
    QRegularExpression wholePattern(pattern);
    wholePattern.setPatternOptions(pattern.patternOptions() | QRegularExpression::UseUnicodePropertiesOption
                                   | QRegularExpression::DotMatchesEverythingOption);
    m_control->m_control->setValidator(new QRegularExpressionValidator(wholePattern, this));

    auto *const layout = new QVBoxLayout(this);
    set_dialog_spacing(*layout);
    layout->setAlignment(Qt::AlignTop); // an enlarged dialog does not pull its parts asunder
    layout->addWidget(m_control);
    const ButtonRow buttons = make_button_row(*this);
    layout->addLayout(buttons.layout);
    m_okButton = buttons.okButton;

    connect(m_control->m_control, &QLineEdit::textChanged, this, &InputStringDialog::on_textChanged);
    on_textChanged(text());
    fit_size(*this, MinimumWidth);
}

QString InputStringDialog::text() const
{
    return m_control->m_control->text();
}

void InputStringDialog::on_textChanged(const QString &text)
{
    QString judged = text;
    int position = 0;
    m_okButton->setEnabled(m_control->m_control->validator()->validate(judged, position) == QValidator::Acceptable);
}

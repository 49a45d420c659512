#pragma once

#include "ToolForm.h"

/// The form that sends mail, filled in. It remembers whom it wrote to.
class MailFormOnShow : public ToolForm
{
public:
    explicit MailFormOnShow(bool strict = false, const QImage &picture = patterned_page({100, 80})) :
        ToolForm(QStringLiteral("Send Image By E-mail"), QStringLiteral("Send by E-mail..."),
                 {{QStringLiteral("ImageManager/mail_cfg/server"), QStringLiteral("127.0.0.2")},
                  {QStringLiteral("ImageManager/mail_cfg/sender"), QStringLiteral("ann@example.test")},
                  {QStringLiteral("ImageManager/mail_cfg/recipient"), QStringLiteral("bob@nowhere.test")},
                  {QStringLiteral("ImageManager/mail_cfg/strict"), strict}},
                 picture)
    {
    }

    [[nodiscard]] Accessible sendButton() { return control(Accessible::Role::Button, QStringLiteral("Send")); }
    [[nodiscard]] bool says(const QString &status) { return !control(Accessible::Role::Label, status).isNull(); }
};

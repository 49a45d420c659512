#pragma once

#include "ToolForm.h"

/// The form that uploads the page, worked by the keyboard.
class FtpFormOnShow : public ToolForm
{
public:
    explicit FtpFormOnShow(const QImage &picture = patterned_page({100, 80})) :
        ToolForm(QStringLiteral("Upload Image by FTP"), QStringLiteral("Upload by FTP..."), {}, picture)
    {
    }

    [[nodiscard]] bool isOpen() { return !form().isNull(); }

    void type(const QString &text)
    {
        for (const QChar character : text) {
            const QByteArray key = character == u'/' ? QByteArray("slash")
                : character == u'.'                  ? QByteArray("period")
                                                     : QString(character).toLatin1();
            program.desktop().pressKey(key);
        }
    }
    void press(const char *key, const QList<const char *> &held = {}) { program.desktop().pressKey(key, held); }

    /// Saves the page from the form.
    [[nodiscard]] bool saveAs(const QString &name)
    {
        click(control(Accessible::Role::Button, QStringLiteral("Save As...")));
        if (!QTest::qWaitFor([this] { return activeTitle() == QLatin1StringView("Save File As"); },
                             Program::patienceMs))
            return false;
        type(name);
        press("Return");
        // The next key is for the form, once the window manager has given it the keyboard again.
        return QTest::qWaitFor(
            [this] {
                return control(Accessible::Role::Button, QStringLiteral("Upload")).has(Accessible::State::Enabled)
                    && activeTitle() == formTitle;
            },
            Program::patienceMs);
    }

    [[nodiscard]] QString savedFile(const QString &name) const { return place.home() + u'/' + name; }
};

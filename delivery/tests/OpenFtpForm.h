#pragma once

#include "FtpForm.h"
#include "FtpServer.h"
#include "NextFileDialog.h"
#include "TemporaryHome.h"

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <memory>
#include <utility>

/// A form on show about a page, in a home of its own, and a server to upload to.
struct OpenFtpForm
{
    explicit OpenFtpForm(QImage shown = smallPage()) : page(std::move(shown)), form(std::make_unique<FtpForm>(&page))
    {
        form->show();
        isShown = QTest::qWaitForWindowExposed(form.get());
    }

    [[nodiscard]] static QImage smallPage()
    {
        QImage page(8, 8, QImage::Format_RGB32);
        page.fill(0xff336699);
        return page;
    }

    template <typename Widget> [[nodiscard]] Widget *find(const char *name) const
    {
        return form->findChild<Widget *>(QLatin1StringView(name));
    }
    [[nodiscard]] QLineEdit *field(const char *name) const { return find<QLineEdit>(name); }
    [[nodiscard]] QPushButton *button(const char *name) const { return find<QPushButton>(name); }
    [[nodiscard]] QString label(const char *name) const { return find<QLabel>(name)->text(); }

    [[nodiscard]] QString filePath() const { return home.filePath(QStringLiteral("scan #1.bmp")); }
    void saveAs() const { saveAs(filePath()); }
    void saveAs(const QString &path) const
    {
        const NextFileDialog dialog([path](QFileDialog &box) {
            for (const QString &filter : box.nameFilters()) {
                if (filter.contains(QLatin1StringView("*.bmp")))
                    box.selectNameFilter(filter);
            }
            NextFileDialog::accept(box, path);
        });
        button("save_as")->click();
    }
    /// Saves, and enters a host and its port.
    void prepare() const
    {
        saveAs();
        field("remoteHost")->setText(QStringLiteral("127.0.0.1"));
        find<QSpinBox>("port")->setValue(server.port());
    }
    void upload() const { button("upload")->click(); }
    [[nodiscard]] bool ends() const
    {
        return QTest::qWaitFor([this] { return !form->isVisible(); }, 20000);
    }

    TemporaryHome home;
    FtpServer server;
    QImage page;
    std::unique_ptr<FtpForm> form;
    bool isShown = false;
};

#include "CommandTab.h"
#include "FrontTabScope.h"
#include "ImageManager.h"
#include "MailedDocument.h"
#include "MailForm.h"

#include <QCoreApplication>

#include <utility>

namespace {

/// The tab that a mail form is about. Another start may bring other tabs to the front meanwhile.
class MailedTab final : public MailedDocument
{
public:
    MailedTab(CommandTab mailedTab, QTabWidget *allTabs, ImageManager *manager) :
        tab(std::move(mailedTab)),
        tabs(allTabs),
        window(manager)
    {
    }

    [[nodiscard]] ImageDocument *currentDocument() const override { return tab.document(); }

    void file_close() override
    {
        if (!tab)
            return;
        tabs->setCurrentWidget(tab.view());
        window->file_close();
    }

private:
    CommandTab tab;
    QTabWidget *tabs;
    ImageManager *window;
};

} // namespace

void ImageManager::send()
{
    const CommandTab tab(currentView());
    if (!tab)
        return;
    const QImage image = tab.document()->isEmpty() ? QImage() : tab.document()->page(1);
    MailedTab mailed(tab, tabWidget, this);
    const FrontTabScope front(tabWidget);
    MailForm form(&image, mailed, this);
    QCoreApplication::processEvents();
    if (tab)
        form.exec();
}

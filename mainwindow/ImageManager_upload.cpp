#include "CommandTab.h"
#include "FtpForm.h"
#include "ImageManager.h"

void ImageManager::upload_ftp()
{
    const CommandTab tab(currentView());
    if (!tab)
        return;
    const QImage page = tab.document()->isEmpty() ? QImage() : tab.document()->page(1);
    FtpForm form(&page, this);
    letEventsThrough();
    if (tab)
        form.exec();
}

#include "CommandTab.h"
#include "FtpForm.h"
#include "ImageManager.h"

#include <QCoreApplication>

void ImageManager::upload_ftp()
{
    const CommandTab tab(currentView());
    if (!tab)
        return;
    const QImage page = tab.document()->isEmpty() ? QImage() : tab.document()->page(1);
    FtpForm form(&page, this);
    QCoreApplication::processEvents();
    if (tab)
        form.exec();
}

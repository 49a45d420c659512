// Builds a thumbnail of a page without pixels, which must not return.
#include "Thumbnail.h"

#include <QApplication>
#include <sys/resource.h>

int main(int argc, char **argv)
{
    const rlimit noCoreFile{.rlim_cur = 0, .rlim_max = 0};
    (void)setrlimit(RLIMIT_CORE, &noCoreFile); // the end is wanted, its traces are not
    const QApplication application(argc, argv);
    const Thumbnail thumbnail{QImage()};
    return 0;
}

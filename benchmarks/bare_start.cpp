// The least that a program of this toolkit costs: it opens the display and ends.

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    return 0;
}

// Shows an empty window of the page's size and ends at its first painting.
#include <QApplication>
#include <QWidget>

#include "first_paint.h"

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    EndAtFirstPaint filter;
    qApp->installEventFilter(&filter);
    QWidget window;
    window.resize(794, 572);
    window.show();
    return QApplication::exec();
}

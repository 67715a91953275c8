// The least that a program with a window and a list can be: what the start of Tagwright is compared with.

#include "FirstPaint.h"
#include "PlainProcess.h"

#include <QApplication>
#include <QMainWindow>
#include <QTreeView>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    auto* list = new QTreeView(&window);
    window.setCentralWidget(list);
    window.resize(1280, 800);
    bench::FirstPaint painted([&](const QWidget& widget) { return &widget == list->viewport(); },
                              [] {
                                  bench::printMeasurement("painted", bench::monotonicSeconds());
                                  QApplication::quit();
                              });
    window.show();
    return QApplication::exec();
}

#include "platform/OwnProcess.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    window::Program program(application, platform::ownExecutable());
    if (const std::optional<int> status = program.start()) return *status;
    return QApplication::exec();
}

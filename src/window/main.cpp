#include "window/MainWindow.h"
#include "window/Program.h"

#include <QApplication>

#include <filesystem>
#include <system_error>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::error_code error;
    window::Program program(application, std::filesystem::read_symlink("/proc/self/exe", error));
    if (const std::optional<int> status = program.start()) return *status;
    return QApplication::exec();
}

#include "drive/CommandServer.h"
#include "drive/DriveCommands.h"
#include "drive/OpenWindows.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <unistd.h>

#include <QApplication>

#include <filesystem>
#include <iostream>
#include <string_view>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::error_code error;
    std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
    if (argc == 3 && std::string_view(argv[1]) == "--install") {
        executable = std::filesystem::absolute(argv[2]) / "Tagwright";
    } else if (argc != 1) {
        std::cerr << "usage: tagwright-drive [--install FOLDER] <COMMANDS\n";
        return 2;
    }
    // Nothing but answers may stand on the output.
    const int answers = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);

    window::Program program(application, executable);
    drive::DriveCommands commands(program);
    drive::CommandServer server(STDIN_FILENO, answers,
                                [&](const QStringList& words) { return commands.execute(words); });
    server.setBlockedByProgress([&] { return program.canStopWaiting(); });
    server.setBusy([&] { return drive::isWaitingForTool() && !program.canStopWaiting(); });
    QObject::connect(&server, &drive::CommandServer::InputEnded, &application,
                     [&] { commands.endUnattended(); });
    if (const std::optional<int> status = program.start()) return *status;
    return QApplication::exec();
}

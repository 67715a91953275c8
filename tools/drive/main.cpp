#include "drive/CommandServer.h"
#include "drive/DriveCommands.h"
#include "drive/OpenWindows.h"
#include "platform/OwnProcess.h"
#include "platform/StandardStreams.h"
#include "window/MainWindow.h"
#include "window/Program.h"

#include <QApplication>

#include <filesystem>
#include <iostream>
#include <string_view>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::filesystem::path executable = platform::ownExecutable();
    if (argc == 3 && std::string_view(argv[1]) == "--install") {
        executable = std::filesystem::absolute(argv[2]) / "Tagwright";
    } else if (argc != 1) {
        std::cerr << "usage: tagwright-drive [--install FOLDER] <COMMANDS\n";
        return 2;
    }
    // Nothing but answers may stand on the output.
    const platform::FileDescriptor answers = platform::takeStandardOutput();

    window::Program program(application, executable);
    drive::DriveCommands commands(program);
    drive::CommandServer server(platform::kStandardInput, answers.get(),
                                [&](const QStringList& words) { return commands.execute(words); });
    server.setBlockedByProgress([&] { return program.canStopWaiting(); });
    server.setDoings([&] { return program.hasWindow() ? program.window().doings() : 0U; });
    server.setAnswerable([&] { return program.canStopWaiting() || drive::isQuestionOpen(); });
    QObject::connect(&server, &drive::CommandServer::InputEnded, &application,
                     [&] { commands.endUnattended(); });
    if (const std::optional<int> status = program.start()) return *status;
    return QApplication::exec();
}

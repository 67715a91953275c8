#include "app/StartUp.h"
#include "platform/OwnProcess.h"
#include "platform/UniqueFile.h"
#include "sweep/Sweep.h"

#include <QCoreApplication>

#include <iostream>

namespace fs = std::filesystem;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc < 2) {
        std::cerr << "usage: tagwright-sweep FILE...\n";
        return 2;
    }
    const fs::path folder = platform::makeUniqueFolder(fs::temp_directory_path() / "tagwright-sweep-");
    app::AppContext context;
    context.installPath = platform::ownExecutable().parent_path();
    context.tempPath = folder;
    context.reportFile = folder / "report.txt";
    context.settings.exifTool.correctedCommands = true;
    context.settings.metadataList.showUnknown = false;
    app::resolveTools(context);
    sweep::Figures figures;
    {
        exiftool::WarmStarter starter;
        starter.Start(context.exifToolPath, context.installPath / "warm", "en");
        starter.isReadyWithin(std::chrono::seconds(10));
        for (int at = 1; at < argc; ++at)
            sweep::sweepFile(context, &starter, fs::absolute(argv[at]), figures, std::cout);
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    std::cout << "files " << figures.files << ", rows " << figures.rows << ", written " << figures.written
              << ", unchanged " << figures.unchanged << ", refused " << figures.refused << ", declined "
              << figures.declined << ", astray " << figures.astray << '\n';
    for (const auto& [reason, count] : figures.expected) std::cout << count << '\t' << reason << '\n';
    return figures.astray == 0 ? 0 : 1;
}

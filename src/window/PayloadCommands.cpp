#include "window/PayloadCommands.h"

#include "payload/ExportDialogICC.h"
#include "payload/ExportDialogThumbnail.h"
#include "window/OperationEnding.h"
#include "window/SelectionGathering.h"

#include <memory>

namespace window {

namespace fs = std::filesystem;

std::span<const CommandRow<PayloadCommands>> PayloadCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<PayloadCommands> kRows[] = {
        {kExportThumbnail, kExportIccProfile, &PayloadCommands::exportPayloads, nullptr, Beside::NoOperation},
    };
    return kRows;
}

void PayloadCommands::exportPayloads(app::CommandId id) {
    const std::vector<fs::path> files = gathering_.GatherSelection();
    if (files.empty()) return;
    std::unique_ptr<payload::ExportDialogPayload> dialog;
    if (id == app::command::kExportThumbnail)
        dialog = std::make_unique<payload::ExportDialogThumbnail>(parts_.operations, files, &parts_.window);
    else
        dialog = std::make_unique<payload::ExportDialogICC>(parts_.operations, files, &parts_.window);
    if (dialog->run() != 0) ending_.carryOut(dialog->takeJob());
}

}  // namespace window

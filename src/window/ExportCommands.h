#pragma once

#include "exiftool/Outcome.h"
#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <filesystem>

namespace exiftool {
struct ValuesExport;
}

namespace window {

class BrowseCommands;
class OperationEnding;

/// What is read out of the file shown, written to another one and opened or left there. GUI thread.
class ExportCommands {
 public:
    ExportCommands(const WindowParts& parts, controls::CommandActions& actions, BrowseCommands& browse,
                   OperationEnding& ending)
        : parts_(parts), actions_(actions), browse_(browse), ending_(ending) {}

    static std::span<const CommandRow<ExportCommands>> rows();

    void dumpFile(app::CommandId id);
    void showExportMenu(app::CommandId id);
    void exportValues(app::CommandId id);

 private:
    CommandState ifFileSelected(app::CommandId id) const;
    /// The panel's file is exported, or the selected one.
    CommandState ifAnyFile(app::CommandId id) const;
    /// The first file among what is selected; where there is none, a message says so.
    std::filesystem::path selectedRegularFile();
    void tellExported(const exiftool::Outcome& outcome, const std::filesystem::path& target);
    void tellStopped(const std::filesystem::path& file);
    /// The designed form deletes what stands in the target's place; the corrected one asks, and replaces it
    /// when the new content is there. False when nothing is to be exported.
    bool clearTheWay(app::CommandForm form, const std::filesystem::path& target);
    /// A target that is not whole does not stay.
    exiftool::Outcome exportStraight(app::CommandForm form, const std::filesystem::path& file,
                                     const std::filesystem::path& target,
                                     const exiftool::ValuesExport& format);
    exiftool::Outcome exportByWayOfTemp(const std::filesystem::path& file,
                                        const std::filesystem::path& target,
                                        const exiftool::ValuesExport& format);

    const WindowParts& parts_;
    controls::CommandActions& actions_;
    BrowseCommands& browse_;
    OperationEnding& ending_;
};

}  // namespace window

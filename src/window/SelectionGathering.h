#pragma once

#include "exiftool/Outcome.h"
#include "window/WindowParts.h"

#include <filesystem>
#include <string>
#include <vector>

namespace window {

class OperationEnding;

/// The beginning of a command over several files: which ones. GUI thread.
class SelectionGathering {
 public:
    SelectionGathering(const WindowParts& parts, OperationEnding& ending) : parts_(parts), ending_(ending) {}

    /// The files that a command over several files works on: those of the selection, or else of a folder that
    /// the user is asked for. Ends the last operation's report. None when there is nothing to work on.
    std::vector<std::filesystem::path> GatherSelection();

 private:
    std::vector<std::filesystem::path> gatherFolder();
    /// Files that cannot be worked on are told with the others' outcomes, or at once where there are no
    /// others.
    std::string reportLine(int reasonNumber, const std::string& path) const;
    void tell(exiftool::Outcomes refused, bool isAll);

    const WindowParts& parts_;
    OperationEnding& ending_;
};

}  // namespace window

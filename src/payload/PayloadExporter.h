#pragma once

#include "app/AppContext.h"
#include "exiftool/ToolRunner.h"
#include "payload/PayloadCommandText.h"

#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace payload {

/// Writes data that are embedded in files out into a folder. In the designed form ExifTool writes the targets
/// itself, empty ones too, and one over the other; in the corrected form nothing is lost: data are fetched
/// into the temp folder first, none make no target, and no two files of one run share a target. Neither form
/// writes over a file of the selection. GUI thread, as the runner.
class PayloadExporter {
 public:
    PayloadExporter(const app::AppContext& context, exiftool::ToolRunner& runner,
                    std::filesystem::path folder, std::vector<std::filesystem::path> selection);

    /// The first target of these kinds that is there already and that the corrected form may replace; empty
    /// when there is none.
    std::filesystem::path firstExisting(std::span<const PayloadExport> payloads) const;
    /// Whether the corrected form replaces what was there before; else it puts a number behind the new name.
    void setReplaceExisting(bool replace) { replaceExisting_ = replace; }

    enum class Outcome {
        Written,
        NoData,   ///< the file holds none of the kind; told in the corrected form only
        Failed,   ///< the report says why
        Stopped,  ///< by the user
    };
    Outcome Export(const PayloadExport& payload, const std::filesystem::path& file);

    /// Where a file's data go to, if nothing is in the way.
    std::filesystem::path targetOf(const PayloadExport& payload, const std::filesystem::path& file) const;

 private:
    Outcome exportAsDesigned(const PayloadExport& payload, const std::filesystem::path& file);
    Outcome exportCorrected(const PayloadExport& payload, const std::filesystem::path& file);
    bool isReplaceable(const std::filesystem::path& target) const;
    bool isOfSelection(const std::filesystem::path& target) const;
    Outcome fail(const std::string& reason, const std::filesystem::path& file) const;

    const app::AppContext& context_;
    exiftool::ToolRunner& runner_;
    std::filesystem::path folder_;
    std::vector<std::filesystem::path> selection_;
    std::set<std::filesystem::path> selectedFiles_;  ///< in their canonical form
    std::set<std::filesystem::path> written_;
    bool replaceExisting_ = false;
};

}  // namespace payload

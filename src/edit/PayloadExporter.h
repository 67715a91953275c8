#pragma once

#include "app/AppContext.h"
#include "edit/PayloadCommandText.h"
#include "exiftool/ToolRunner.h"

#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace edit {

/// What is to become of a file that stands where data are to be written.
enum class ExistingTarget { Replace, KeepBoth, Stop };

/// Writes data that are embedded in files out into a folder. In the designed form ExifTool writes the targets
/// itself, empty ones too, and one over the other; in the corrected form nothing is lost: data are fetched
/// into the temp folder first, none make no target, and no two files of one run share a target. Neither form
/// writes over a file of the selection. GUI thread, as the runner.
class PayloadExporter {
 public:
    /// Asked once in a run, about the first target that exists.
    using Ask = std::function<ExistingTarget(const std::filesystem::path& target)>;

    PayloadExporter(const app::AppContext& context, exiftool::ToolRunner& runner,
                    std::filesystem::path folder, const std::vector<std::filesystem::path>& selection,
                    Ask ask);

    enum class Outcome {
        Written,
        NoData,   ///< the file holds none of the kind; told in the corrected form only
        Failed,   ///< the report says why
        Stopped,  ///< by the user
    };
    Outcome Export(const PayloadExport& payload, const std::filesystem::path& file);

    /// Where a file's data go to, if nothing is in the way.
    std::filesystem::path TargetOf(const PayloadExport& payload, const std::filesystem::path& file) const;

 private:
    Outcome exportAsDesigned(const PayloadExport& payload, const std::filesystem::path& file);
    Outcome exportCorrected(const PayloadExport& payload, const std::filesystem::path& file);
    bool isOfSelection(const std::filesystem::path& target) const;
    std::filesystem::path freeTarget(const std::filesystem::path& wanted) const;
    Outcome fail(const std::string& reason, const std::filesystem::path& file) const;

    const app::AppContext& context_;
    exiftool::ToolRunner& runner_;
    std::filesystem::path folder_;
    std::set<std::filesystem::path> selection_;  ///< in their canonical form
    std::set<std::filesystem::path> written_;
    Ask ask_;
    bool hasAnswer_ = false;
    ExistingTarget answer_ = ExistingTarget::KeepBoth;
};

}  // namespace edit

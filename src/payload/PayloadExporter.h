#pragma once

#include "exiftool/Outcome.h"
#include "jobs/Job.h"
#include "payload/PayloadCommandText.h"

#include <QString>
#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace payload {

/// Writes data that are embedded in files out into a folder. In the designed form ExifTool writes the targets
/// itself, empty ones too, and one over the other; in the corrected form nothing is lost: data are fetched
/// into the temp folder first, none make no target, neither do those that came in part, and no two files of
/// one run share a target. Neither form writes over a file of the selection. One thread at a time.
class PayloadExporter {
 public:
    PayloadExporter(std::filesystem::path folder, std::vector<std::filesystem::path> selection);

    /// The first target of these kinds that is there already and that the corrected form may replace; empty
    /// when there is none.
    std::filesystem::path firstExisting(std::span<const PayloadExport> payloads) const;
    /// Whether the corrected form replaces what was there before; else it puts a number behind the new name.
    void setReplaceExisting(bool replace) { replaceExisting_ = replace; }

    /// Unchanged: the file holds none of the kind. The words of what failed name the target.
    exiftool::Outcome Export(jobs::JobWork& work, const PayloadExport& payload,
                             const std::filesystem::path& file);

    /// Where a file's data go to, if nothing is in the way.
    std::filesystem::path targetOf(const PayloadExport& payload, const std::filesystem::path& file) const;

    const std::vector<std::filesystem::path>& selection() const { return selection_; }

 private:
    exiftool::Outcome exportAsDesigned(jobs::JobWork& work, const PayloadExport& payload,
                                       const std::filesystem::path& file);
    exiftool::Outcome exportCorrected(jobs::JobWork& work, const PayloadExport& payload,
                                      const std::filesystem::path& file);
    bool isReplaceable(const std::filesystem::path& target) const;
    bool isOfSelection(const std::filesystem::path& target) const;

    std::filesystem::path folder_;
    std::vector<std::filesystem::path> selection_;
    std::set<std::filesystem::path> selectedFiles_;  ///< in their canonical form
    std::set<std::filesystem::path> written_;
    bool replaceExisting_ = false;
};

/// Exports all kinds from each file of the exporter's selection. A file that holds some of them and others
/// not ends with a warning.
jobs::Job exportPayloadsJob(const QString& title, PayloadExporter exporter,
                            const std::vector<PayloadExport>& payloads);

}  // namespace payload

#pragma once

#include "app/AppContext.h"

#include <QTemporaryDir>
#include <filesystem>
#include <vector>

namespace bench {

/// Where the sample files stand: what was given to the program; else TAGWRIGHT_SAMPLES; else the install
/// folder's own.
std::filesystem::path sampleFolder(const std::filesystem::path& given);

/// The samples and what ExifTool, asked as the metadata panel asks it, prints about each: read once, kept in
/// a folder of their own until the end.
class SampleFiles {
 public:
    struct Sample {
        std::filesystem::path file;
        std::filesystem::path output;
        std::size_t lines = 0;
        std::size_t bytes = 0;
    };

    /// Runs ExifTool over all files of the folder; throws std::runtime_error when there are none or it is
    /// missing. With the fewest lines first.
    explicit SampleFiles(const std::filesystem::path& folder);

    const std::vector<Sample>& samples() const { return samples_; }
    std::size_t lines() const;
    /// A context whose tools are found and whose temp folder exists; all families are shown.
    const app::AppContext& context() const { return context_; }

 private:
    QTemporaryDir folder_;
    app::AppContext context_;
    std::vector<Sample> samples_;
};

/// Made at the first call with the folder given to setSampleFolder; throws as SampleFiles does.
const SampleFiles& samples();
void setSampleFolder(const std::filesystem::path& folder);

/// The filters of the metadata panel all open, and nothing hidden that has no record.
void showAllFamilies(app::Settings& settings);

}  // namespace bench

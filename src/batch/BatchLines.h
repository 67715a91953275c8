#pragma once

#include "app/AppContext.h"
#include "platform/CommandText.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The lines of the operations that ask nothing, exact to the blank, each in the designed and the corrected
/// form.
namespace batch {

/// What the names of command 173 and 174 carry behind the date.
enum class CameraPart { Make, Model };

/// Command 157: the file's date becomes the date of the photo.
platform::CommandText fileDateLine(const app::AppContext& context, app::CommandForm form,
                                   const std::filesystem::path& file);

/// Command 172: the file is named after the camera's shutter count.
platform::CommandText shutterCountLine(const app::AppContext& context, app::CommandForm form,
                                       const std::filesystem::path& file);

/// Whether files get their names, or are only told what they would be.
enum class Naming { Given, Told };

/// Commands 173 and 174: "<date> - <make or model>-<old name>", by the date on which the photo was taken; in
/// the designed form by that of the file. What ToolRunner::RunOnFile puts before the file.
platform::CommandText dateAndCameraArguments(app::CommandForm form, CameraPart part,
                                             Naming naming = Naming::Given);

/// Prints the names that these files would get in the corrected form; nothing of one that would keep its own.
platform::CommandText toldNamesLine(const app::AppContext& context, CameraPart part,
                                    std::span<const std::filesystem::path> files);

struct ToldName {
    std::string before;  ///< without their folder
    std::string after;

    bool operator==(const ToldName&) const = default;
};

/// What that line has printed.
std::vector<ToldName> toldNames(std::string_view printed);

/// Command 185: the file loses its thumbnail. What ToolRunner::RunOnFile puts before the last of the files;
/// they are all of the run up to it, since the designed form is never emptied and grows with each file.
platform::CommandText thumbnailArguments(app::CommandForm form,
                                         const std::vector<std::filesystem::path>& filesSoFar);

}  // namespace batch

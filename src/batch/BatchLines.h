#pragma once

#include "app/AppContext.h"
#include "platform/CommandText.h"

#include <filesystem>
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

/// Commands 173 and 174: "<date> - <make or model>-<old name>". What ToolRunner::RunOnFile puts before the
/// file.
platform::CommandText dateAndCameraArguments(app::CommandForm form, CameraPart part);

/// Command 185: the file loses its thumbnail. What ToolRunner::RunOnFile puts before the last of the files;
/// they are all of the run up to it, since the designed form is never emptied and grows with each file.
platform::CommandText thumbnailArguments(app::CommandForm form,
                                         const std::vector<std::filesystem::path>& filesSoFar);

}  // namespace batch

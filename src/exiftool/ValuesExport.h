#pragma once

#include "app/AppContext.h"
#include "app/CommandTable.h"
#include "platform/CommandText.h"

#include <filesystem>
#include <span>
#include <string_view>

namespace exiftool {

/// One way to write the values of a file to another file.
struct ValuesExport {
    app::CommandId command;
    std::string_view extension;  ///< with its dot
    std::string_view arguments;  ///< for ExifTool, with a blank behind each
};

/// In the order in which a menu offers them.
std::span<const ValuesExport> valuesExports();

/// Null for a command that is none.
const ValuesExport* findValuesExport(app::CommandId command);

/// Beside the file, with its base name and the extension. Where that is the file itself, the extension goes
/// behind the whole name.
std::filesystem::path exportTarget(const std::filesystem::path& file, const ValuesExport& format);

/// The two words that ExportValues takes: the file in quotes, and the output in quotes. The corrected form
/// leads what ExifTool complains of to the report.
platform::CommandText exportFileWord(const std::filesystem::path& file);
platform::CommandText exportOutputWord(const app::AppContext& context, app::CommandForm form,
                                       const std::filesystem::path& output);

}  // namespace exiftool

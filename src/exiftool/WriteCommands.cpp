#include "exiftool/WriteCommands.h"

namespace exiftool {

namespace fs = std::filesystem;

WriteCommands::WriteCommands(const app::AppContext& context, ToolRunner& runner)
    : context_(context), runner_(runner) {}

bool WriteCommands::RemoveFamilyFromSelection(int commandId, const std::vector<fs::path>& files) {
    const platform::CommandText arguments = removeFamilyArguments(context_, commandId);
    bool wereRun = true;
    for (const fs::path& file : files) {
        if (runner_.RunOnFile(file, arguments) == 0) wereRun = false;
        if (runner_.wasStopped()) break;
    }
    return wereRun;
}

bool WriteCommands::CopyTagsFromFile(CopiedFamilies families, const fs::path& source,
                                     const std::vector<fs::path>& files) {
    if (files.empty() || !(families.exif || families.iptc || families.xmp)) return false;
    bool wereRun = true;
    for (const fs::path& file : files) {
        if (runner_.runWriteLine({file}, copyTagsCommand(context_, families, source, file)) == 0)
            wereRun = false;
        if (runner_.wasStopped()) break;
    }
    return wereRun;
}

int WriteCommands::WriteSingleValue(const fs::path& file, int tagId, std::string_view tagName,
                                    const platform::CommandText& value) {
    if (file.empty() || tagName.empty()) return 0;
    return runner_.runWriteLine({file}, singleValueCommand(context_, file, tagId, tagName, value));
}

}  // namespace exiftool

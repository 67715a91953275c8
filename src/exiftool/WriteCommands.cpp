#include "exiftool/WriteCommands.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"

namespace exiftool {

namespace fs = std::filesystem;

namespace {

template <typename Write>
Outcomes writeEach(const std::vector<fs::path>& files, const Write& write) {
    Outcomes outcomes;
    bool isStopped = false;
    for (const fs::path& file : files) {
        outcomes.push_back(isStopped ? Outcome{file, OutcomeKind::NotBegun, {}} : write(file));
        isStopped = isStopped || outcomes.back().kind == OutcomeKind::Stopped;
    }
    return outcomes;
}

}  // namespace

WriteCommands::WriteCommands(const app::AppContext& context, ToolRunner& runner)
    : context_(context), runner_(runner) {}

Outcomes WriteCommands::RemoveFamilyFromSelection(app::CommandForm form, int commandId,
                                                  const std::vector<fs::path>& files) {
    const platform::CommandText arguments = removeFamilyArguments(context_, form, commandId);
    return writeEach(files, [&](const fs::path& file) { return runner_.RunOnFile(file, arguments); });
}

Outcome WriteCommands::WriteSingleValue(const fs::path& file, int tagId, std::string_view tagName,
                                        const platform::CommandText& value) {
    if (file.empty() || tagName.empty())
        return {file, OutcomeKind::NotStarted, app::spokenText(text::kNoFileOrTag)};
    return runner_.runWriteLine(file, singleValueCommand(context_, file, tagId, tagName, value));
}

}  // namespace exiftool

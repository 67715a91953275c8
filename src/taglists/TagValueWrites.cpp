#include "taglists/TagValueWrites.h"

#include "exiftool/WriteTag.h"
#include "platform/Text.h"
#include "taglists/TagValueLines.h"
#include "tags/ExtensionTable.h"
#include "tags/GroupCatalogue.h"

#include <algorithm>
#include <array>

namespace taglists {

namespace fs = std::filesystem;

namespace {

struct ModifyMode {
    int commandId;
    int mode;
    int family;
    int readCategory;
    const char* extension;
};

constexpr std::array<ModifyMode, 3> kModes{{
    {22, 1, 1, 1413, "exif"},
    {31, 2, 2, 1421, "iptc"},
    {35, 7, 3, 1088, "xmp"},
}};
constexpr int kGpsMode = 10;
constexpr int kFileNameMode = 11;
constexpr int kOtherXmpMode = 281;
constexpr std::size_t kLongestName = 255;

bool isCorrected(const app::AppContext& context) {
    return context.settings.exifTool.correctedCommands;
}

const ModifyMode* rowOf(int ModifyMode::*column, int number) {
    const auto* const found = std::ranges::find(kModes, number, column);
    return found == kModes.end() ? nullptr : found;
}

int writeChanged(const jobs::OperationParts& parts, const TagRows& rows, const fs::path& file) {
    const std::vector<app::CurrentEdit> changed = changedTags(parts, rows);
    if (changed.empty()) return 1;
    parts.runner.copyForSafety(file);
    return parts.runner.runWriteLine({file}, writeChangedTagsCommand(parts.context, changed, file));
}

}  // namespace

int modeOfCommand(const app::AppContext& context, int commandId) {
    const ModifyMode* const row = rowOf(&ModifyMode::commandId, commandId);
    return isCorrected(context) && row != nullptr ? row->mode : commandId;
}

TagRows rowsOfMode(const tags::TagDictionary& dictionary, int mode) {
    const ModifyMode* const row = rowOf(&ModifyMode::mode, mode);
    return row == nullptr ? TagRows() : rowsOfFamily(dictionary, *tags::findFamily(row->family));
}

int readCategoryOfMode(const app::AppContext& context, int mode) {
    const ModifyMode* const row = rowOf(&ModifyMode::mode, mode);
    // The read knows the numbers of categories, of which a mode is none.
    return isCorrected(context) && row != nullptr ? row->readCategory : mode;
}

QString familyNameOfCommand(int commandId) {
    const ModifyMode* const row = rowOf(&ModifyMode::commandId, commandId);
    return row == nullptr ? QString() : QString::fromLatin1(row->extension).toUpper();
}

QStringList valuesFileTypes(const app::AppContext& context) {
    QStringList types;
    for (const ModifyMode& row : kModes) {
        const QString extension = QString::fromLatin1(row.extension);
        types.append(QStringLiteral("%1 (*.%2)").arg(extension.toUpper(), extension));
    }
    if (isCorrected(context)) types << QStringLiteral("CSV (*.csv)");
    return types;
}

ValuesFileType valuesFileTypeOfMode(int mode) {
    if (mode == kGpsMode) return {2, QStringLiteral("gps")};
    const ModifyMode* const row = rowOf(&ModifyMode::mode, mode == kOtherXmpMode ? kModes.back().mode : mode);
    if (row == nullptr) return {};
    return {static_cast<int>(row - kModes.data()), QString::fromLatin1(row->extension)};
}

int modifyFile(const jobs::OperationParts& parts, int mode, const TagRows& rows, const fs::path& file) {
    if (mode == kGpsMode) return ModifyGpsInFile(parts, rows, file);
    if (mode != kFileNameMode) return ModifyGroupInFile(parts, rows, file);
    app::CurrentEdit edit;
    edit.value = platform::display(file);
    return exiftool::WriteOneTag(parts.context, parts.runner, file, edit).code == 0 ? 1 : 0;
}

int ModifyGroupInFile(const jobs::OperationParts& parts, const TagRows& rows, const fs::path& file) {
    if (isCorrected(parts.context)) return writeChanged(parts, rows, file);
    parts.runner.runWriteLine({file}, emptyGroupOfFirstRowCommand(parts.context, rows, file));
    parts.runner.copyForSafety(file);
    return parts.runner.runWriteLine({file}, writeRowsCommand(parts.context, rows, file));
}

int ModifyGpsInFile(const jobs::OperationParts& parts, const TagRows& rows, const fs::path& file) {
    if (isCorrected(parts.context)) return writeChanged(parts, rows, file);
    return parts.runner.runWriteLine({file}, writeGpsRowsCommand(parts.context, rows, file));
}

TagRows rowsOfGroup(const tags::TagDictionary& dictionary, const QString& group) {
    TagRows rows;
    const std::optional<std::uint32_t> id = tags::FindGroup(QString(u'[' + group + u']'));
    if (!id) return rows;
    for (const tags::TagRecord& record : dictionary.records()) {
        if (record.groupIndex == *id && record.writable && record.valueKind != tags::ValueKind::Binary)
            rows.push_back(rowOf(record));
    }
    return rows;
}

int AddTagsToFile(const jobs::OperationParts& parts, const TagRows& rows, QStringView group,
                  const fs::path& file) {
    if (isCorrected(parts.context)) return writeChanged(parts, rows, file);
    parts.runner.copyForSafety(file);
    parts.runner.runWriteLine({file}, emptyGroupCommand(parts.context, group, file));
    return parts.runner.runWriteLine({file}, addRowsCommand(parts.context, rows, group, file));
}

int AddATagToFile(const jobs::OperationParts& parts, const TagRows& rows, QStringView group,
                  const fs::path& file) {
    if (isCorrected(parts.context)) return writeChanged(parts, rows, file);
    parts.runner.copyForSafety(file);
    return parts.runner.runWriteLine({file}, addRowsToOneFileCommand(parts.context, rows, group, file));
}

fs::path valuesOutput(const app::AppContext& context, const fs::path& file) {
    constexpr std::string_view kExtension = ".txt";
    const std::string name = file.filename().native();
    const bool fits = name.size() + kExtension.size() <= kLongestName;
    return context.tempPath / (fits ? name + std::string(kExtension) : "Metadata.txt");
}

bool readValues(const jobs::OperationParts& parts, TagRows& rows, const fs::path& output,
                const ReadInto& read) {
    std::error_code ignored;
    // What an earlier file of this name held is none of this one's.
    fs::remove(output, ignored);
    if (read(output) == 0) return false;
    fillValues(rows, output, isCorrected(parts.context) ? GroupMatch::WithoutCase : GroupMatch::Exact);
    fs::remove(output, ignored);
    return true;
}

bool hasSomethingToWrite(const jobs::OperationParts& parts, const TagRows& rows) {
    return !isCorrected(parts.context) || changedCount(rows) > 0;
}

FileRuns writeFiles(const jobs::OperationParts& parts, const QString& title,
                    const std::vector<fs::path>& files, const TellLeftOut& tell, const WriteFile& write) {
    FileRuns runs;
    const jobs::FileProgressScope scope(parts.progress, title, files.size());
    for (std::size_t at = 0; at < files.size() && !runs.wasStopped; ++at) {
        if (tags::findExtension(files[at]) == nullptr) {
            tell(cannotBeModified(files[at]));
            continue;
        }
        if (!parts.progress.showFile(files[at], at + 1)) {
            runs.wasStopped = true;
            break;
        }
        ++runs.begun;
        runs.lastWasRun = write(files[at]) != 0;
        runs.wasStopped = parts.runner.wasStopped();
    }
    return runs;
}

}  // namespace taglists

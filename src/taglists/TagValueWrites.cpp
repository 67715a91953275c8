#include "taglists/TagValueWrites.h"

#include "exiftool/WriteTag.h"
#include "platform/Text.h"
#include "taglists/TagValueLines.h"
#include "tags/GroupCatalogue.h"

#include <algorithm>
#include <array>

namespace taglists {

namespace fs = std::filesystem;
using app::CommandForm;
using exiftool::Outcome;
using exiftool::OutcomeKind;

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

const ModifyMode* rowOf(int ModifyMode::*column, int number) {
    const auto* const found = std::ranges::find(kModes, number, column);
    return found == kModes.end() ? nullptr : found;
}

/// The first line empties, the second writes; what became of the file tells the one that failed, else the
/// second.
Outcome bothOf(Outcome first, Outcome second) {
    const bool isWhole = exiftool::isWritten(first.kind) || first.kind == OutcomeKind::Unchanged;
    if (first.kind == OutcomeKind::Failed && exiftool::isWritten(second.kind)) {
        second.kind = OutcomeKind::Warned;
        second.words = first.words + '\n' + second.words;
        return second;
    }
    if (!isWhole) {
        if (!second.words.empty()) first.words += '\n' + second.words;
        return first;
    }
    if (first.kind == OutcomeKind::Warned && second.kind == OutcomeKind::Done) return first;
    if (first.kind == OutcomeKind::Done && second.kind == OutcomeKind::Unchanged) return first;
    return second;
}

jobs::Job jobOver(const QString& title, const std::vector<fs::path>& files, jobs::WorkOnFile work) {
    jobs::Job job{.title = title, .files = files};
    job.workOnFile = std::move(work);
    leaveOutUnknownFiles(job);
    return job;
}

jobs::Job changedTagsJob(const jobs::OperationParts& parts, const QString& title, const TagRows& rows,
                         const std::vector<fs::path>& files) {
    const std::vector<app::CurrentEdit> changed = changedTags(parts, rows);
    if (changed.empty()) return {.title = title};
    jobs::Job job = jobOver(title, files, [changed](jobs::JobWork& work, const fs::path& file) {
        if (std::optional<Outcome> refused = work.runner.copyForSafety(file)) return *refused;
        return work.runner.runWriteLine(file, writeChangedTagsCommand(work.context, changed, file));
    });
    job.lineOf = [changed](const app::AppContext& context, CommandForm, const fs::path& file) {
        return writeChangedTagsCommand(context, changed, file);
    };
    return job;
}

/// The tag that is the file's name.
Outcome writeFileName(jobs::JobWork& work, const fs::path& file) {
    app::CurrentEdit edit;
    edit.value = platform::display(file);
    return exiftool::WriteOneTag(work.context, work.form, work.runner, file, edit);
}

}  // namespace

int modeOfCommand(CommandForm form, int commandId) {
    const ModifyMode* const row = rowOf(&ModifyMode::commandId, commandId);
    return form == CommandForm::Corrected && row != nullptr ? row->mode : commandId;
}

TagRows rowsOfMode(const tags::TagDictionary& dictionary, int mode) {
    const ModifyMode* const row = rowOf(&ModifyMode::mode, mode);
    return row == nullptr ? TagRows() : rowsOfFamily(dictionary, *tags::findFamily(row->family));
}

int readCategoryOfMode(CommandForm form, int mode) {
    const ModifyMode* const row = rowOf(&ModifyMode::mode, mode);
    // The read knows the numbers of categories, of which a mode is none.
    return form == CommandForm::Corrected && row != nullptr ? row->readCategory : mode;
}

QString familyNameOfCommand(int commandId) {
    const ModifyMode* const row = rowOf(&ModifyMode::commandId, commandId);
    return row == nullptr ? QString() : QString::fromLatin1(row->extension).toUpper();
}

QStringList valuesFileTypes(CommandForm form) {
    QStringList types;
    for (const ModifyMode& row : kModes) {
        const QString extension = QString::fromLatin1(row.extension);
        types.append(QStringLiteral("%1 (*.%2)").arg(extension.toUpper(), extension));
    }
    if (form == CommandForm::Corrected) types << QStringLiteral("CSV (*.csv)");
    return types;
}

ValuesFileType valuesFileTypeOfMode(int mode) {
    if (mode == kGpsMode) return {2, QStringLiteral("gps")};
    const ModifyMode* const row = rowOf(&ModifyMode::mode, mode == kOtherXmpMode ? kModes.back().mode : mode);
    if (row == nullptr) return {};
    return {static_cast<int>(row - kModes.data()), QString::fromLatin1(row->extension)};
}

jobs::Job modifyFilesJob(const jobs::OperationParts& parts, CommandForm form, const QString& title, int mode,
                         const TagRows& rows, const std::vector<fs::path>& files) {
    if (mode == kFileNameMode) return jobOver(title, files, writeFileName);
    if (form == CommandForm::Corrected) return changedTagsJob(parts, title, rows, files);
    if (mode == kGpsMode)
        return jobOver(title, files, [rows](jobs::JobWork& work, const fs::path& file) {
            return work.runner.runWriteLine(file, writeGpsRowsCommand(work.context, rows, file));
        });
    return jobOver(title, files, [rows](jobs::JobWork& work, const fs::path& file) {
        Outcome emptied =
            work.runner.runWriteLine(file, emptyGroupOfFirstRowCommand(work.context, rows, file));
        if (emptied.kind == OutcomeKind::Stopped) return emptied;
        if (std::optional<Outcome> refused = work.runner.copyForSafety(file)) return *refused;
        return bothOf(std::move(emptied),
                      work.runner.runWriteLine(file, writeRowsCommand(work.context, rows, file)));
    });
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

jobs::Job addTagsJob(const jobs::OperationParts& parts, CommandForm form, const QString& title,
                     const TagRows& rows, const QString& group, const std::vector<fs::path>& files) {
    if (form == CommandForm::Corrected) return changedTagsJob(parts, title, rows, files);
    return jobOver(title, files, [rows, group](jobs::JobWork& work, const fs::path& file) {
        if (std::optional<Outcome> refused = work.runner.copyForSafety(file)) return *refused;
        Outcome emptied = work.runner.runWriteLine(file, emptyGroupCommand(work.context, group, file));
        if (emptied.kind == OutcomeKind::Stopped) return emptied;
        return bothOf(std::move(emptied),
                      work.runner.runWriteLine(file, addRowsCommand(work.context, rows, group, file)));
    });
}

jobs::Job addATagJob(const jobs::OperationParts& parts, CommandForm form, const QString& title,
                     const TagRows& rows, const QString& group, const fs::path& file) {
    if (form == CommandForm::Corrected) return changedTagsJob(parts, title, rows, {file});
    return jobOver(title, {file}, [rows, group](jobs::JobWork& work, const fs::path& one) {
        if (std::optional<Outcome> refused = work.runner.copyForSafety(one)) return *refused;
        return work.runner.runWriteLine(one, addRowsToOneFileCommand(work.context, rows, group, one));
    });
}

fs::path valuesOutput(const app::AppContext& context, const fs::path& file) {
    constexpr std::string_view kExtension = ".txt";
    const std::string name = file.filename().native();
    const bool fits = name.size() + kExtension.size() <= kLongestName;
    return context.tempPath / (fits ? name + std::string(kExtension) : "Metadata.txt");
}

bool readValues(const jobs::OperationParts& parts, CommandForm form, TagRows& rows, const fs::path& output,
                const ReadInto& read) {
    std::error_code ignored;
    // What an earlier file of this name held is none of this one's.
    fs::remove(output, ignored);
    if (read(output) == 0 || !parts.runner.lastFaultOfRead(output).empty()) return false;
    const bool isFilled = form == CommandForm::Designed ? fillValues(rows, output)
                                                        : fillExactValues(rows, output, [&](int tagId) {
                                                              return parts.labels.takesSeveralValues(tagId);
                                                          });
    fs::remove(output, ignored);
    return isFilled;
}

bool hasSomethingToWrite(CommandForm form, const TagRows& rows) {
    return form == CommandForm::Designed || changedCount(rows) > 0;
}

}  // namespace taglists

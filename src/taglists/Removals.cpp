#include "taglists/Removals.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"
#include "exiftool/LineParts.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "taglists/RemovalTexts.h"
#include "taglists/TagListTexts.h"
#include "taglists/WhatIsLeft.h"
#include "tags/ExtensionTable.h"
#include "tags/GroupCatalogue.h"

#include <algorithm>
#include <iterator>

namespace taglists {

namespace fs = std::filesystem;
using exiftool::OutcomeKind;
using exiftool::Outcomes;

namespace {

constexpr const char* kReadOutput = "Metadata.txt";

/// Turns the safety copies off for a while.
class WithoutSafetyCopies {
 public:
    WithoutSafetyCopies(exiftool::ToolRunner& runner, bool off)
        : enabled_(runner.safetyCopies().SafetyCopyEnabled), before_(enabled_) {
        if (off) enabled_ = 0;
    }
    ~WithoutSafetyCopies() { enabled_ = before_; }
    WithoutSafetyCopies(const WithoutSafetyCopies&) = delete;
    WithoutSafetyCopies& operator=(const WithoutSafetyCopies&) = delete;

 private:
    std::uint8_t& enabled_;
    std::uint8_t before_;
};

/// A group that no file held has not been removed.
void tellGroupsOfNone(jobs::JobWork& work, const std::vector<std::string>& groups,
                      const std::vector<fs::path>& files) {
    QStringList none;
    for (const std::string& group : groupsOfNone(work, groups, files)) none << QString::fromStdString(group);
    if (!none.isEmpty())
        work.remarks.push_back(app::spokenText(text::kHeldByNone, {none.join(QStringLiteral(", "))}));
}

bool canStandInList(const fs::path& file) {
    return exiftool::canStandOnLine(platform::narrow(file));
}

}  // namespace

QString cannotBeModified(const fs::path& file) {
    return platform::display(file) + QStringLiteral(" cannot be modified");
}

void leaveOutUnknownFiles(jobs::Job& job) {
    std::vector<fs::path> known;
    for (const fs::path& file : job.files) {
        if (tags::findExtension(file) != nullptr)
            known.push_back(file);
        else
            job.leftOut.push_back({file, OutcomeKind::Failed, cannotBeModified(file).toStdString()});
    }
    job.files = std::move(known);
}

jobs::Job removeTagsJob(const QString& title, const std::vector<TagAddress>& tags,
                        const std::vector<fs::path>& files) {
    jobs::Job job{.title = title};
    if (tags.empty()) return job;
    job.files = files;
    leaveOutUnknownFiles(job);
    job.workOnFile = [tags](jobs::JobWork& work, const fs::path& file) {
        if (std::optional<exiftool::Outcome> refused = work.runner.copyForSafety(file)) return *refused;
        return work.runner.runWriteLine(file,
                                        removeTagsOfSelectionCommand(work.context, work.form, tags, file));
    };
    job.lineOf = [tags](const app::AppContext& context, app::CommandForm form, const fs::path& file) {
        return removeTagsOfSelectionCommand(context, form, tags, file);
    };
    return job;
}

jobs::Job removeTagsFromShownFileJob(const QString& title, const std::vector<TagAddress>& tags,
                                     const fs::path& file) {
    jobs::Job job = removeTagsJob(title, tags, {file});
    job.workOnFile = [tags](jobs::JobWork& work, const fs::path& shown) {
        if (std::optional<exiftool::Outcome> refused = work.runner.copyForSafety(shown)) return *refused;
        return work.runner.runWriteLine(shown, removeTagsOfFileCommand(work.context, work.form, tags, shown));
    };
    return job;
}

jobs::Job removeTypesJob(const QString& title, const std::vector<std::string>& groups,
                         const std::vector<fs::path>& files) {
    jobs::Job job{.title = title};
    if (groups.empty()) return job;
    job.files = files;
    job.countsFiles = false;
    job.judgeAgain = [groups](jobs::JobWork& work, std::span<exiftool::Outcome> outcomes) {
        tellWhatIsLeft(work, {.groups = groups}, outcomes);
    };
    job.workOnAll = [groups](jobs::JobWork& work, const std::vector<fs::path>& all) {
        if (work.form == app::CommandForm::Corrected) tellGroupsOfNone(work, groups, all);
        const exiftool::FileList list = work.runner.WriteFileList(all);
        Outcomes outcomes;
        if (list.path.empty()) {
            for (const fs::path& file : list.listed)
                outcomes.push_back(
                    {file, OutcomeKind::NotStarted, app::spokenText(text::kFileListNotWritten)});
        } else if (!list.listed.empty()) {
            outcomes = work.runner.runWriteLine(
                list.listed, removeTypesCommand(work.context, work.form, groups, list.path));
        }
        outcomes.insert(outcomes.end(), list.refused.begin(), list.refused.end());
        return outcomes;
    };
    return job;
}

jobs::Job removeFamilyJob(const QString& title, int commandId, const std::vector<fs::path>& files) {
    jobs::Job job{.title = title, .files = files};
    job.workOnFile = [commandId](jobs::JobWork& work, const fs::path& file) {
        exiftool::WriteCommands writes(work.context, work.runner);
        return writes.RemoveFamilyFromSelection(work.form, commandId, {file}).front();
    };
    job.judgeAgain = [commandId](jobs::JobWork& work, std::span<exiftool::Outcome> outcomes) {
        tellWhatIsLeft(work, askedByCommand(commandId), outcomes);
    };
    job.lineOf = [commandId](const app::AppContext& context, app::CommandForm form, const fs::path& file) {
        return exiftool::lineOnFile(context, form, exiftool::removeFamilyArguments(context, form, commandId),
                                    file);
    };
    return job;
}

HeldTagsRead readHeldTags(const jobs::OperationParts& parts, app::CommandForm form,
                          const std::vector<fs::path>& files) {
    if (files.empty()) return {};
    std::vector<fs::path> listed;
    std::vector<fs::path> others;
    std::partition_copy(files.begin(), files.end(), std::back_inserter(listed), std::back_inserter(others),
                        canStandInList);
    // The list is only read here, and nobody's photo changes.
    const WithoutSafetyCopies copies(parts.runner, true);
    const exiftool::FileList list = parts.runner.WriteFileList(listed);
    const fs::path output = parts.context.tempPath / kReadOutput;
    std::error_code ignored;
    fs::remove(output, ignored);
    const platform::CommandText command = heldTagsCommand(parts.context, form, list.path, others, output);
    static_cast<void>(parts.runner.RunToolLine(command));
    const std::string answer = platform::readOwnFile(output);
    std::string fault = parts.runner.lastFaultOfRead(output);
    // Of every file there is something to say, if only its type.
    if (fault.empty() && answer.empty()) fault = app::spokenText(exiftool::text::kNoAnswer);
    return {heldTags(answer, parts.dictionary), platform::wide(fault)};
}

HeldTagsRead readHeldTagsOfGroup(const jobs::OperationParts& parts, app::CommandForm form,
                                 const fs::path& file, const std::string& group) {
    if (form == app::CommandForm::Corrected) {
        HeldTagsRead held = readHeldTags(parts, form, {file});
        const auto id = tags::FindGroup(QStringLiteral("[%1]").arg(QString::fromStdString(group)));
        std::erase_if(held.tags, [&](const HeldTag& tag) { return tag.groupId != id; });
        return held;
    }
    const fs::path output = parts.context.tempPath / kReadOutput;
    if (!isPlainName(group)) return {};
    std::error_code ignored;
    fs::remove(output, ignored);
    static_cast<void>(parts.reads.ReadGroupAll(file, output, group));
    return {heldTags(platform::readOwnFile(output), parts.dictionary),
            platform::wide(parts.runner.lastFaultOfRead(output))};
}

}  // namespace taglists

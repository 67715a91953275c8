#include "taglists/Removals.h"

#include "platform/Text.h"
#include "taglists/RemovalTexts.h"
#include "tags/ExtensionTable.h"
#include "tags/GroupCatalogue.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace taglists {

namespace fs = std::filesystem;

namespace {

constexpr const char* kReadOutput = "Metadata.txt";
/// The count of files for the progress of a run over all of them, of which nobody knows how far it is.
constexpr std::size_t kOneRun = 0;

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

template <typename Write>
FileRuns runOverFiles(const jobs::OperationParts& parts, const QString& title,
                      const std::vector<fs::path>& files, const Write& write) {
    FileRuns runs;
    const jobs::FileProgressScope scope(parts.progress, title, files.size());
    for (std::size_t at = 0; at < files.size(); ++at) {
        if (!parts.progress.showFile(files[at], at + 1)) {
            runs.wasStopped = true;
            break;
        }
        const std::optional<bool> wasRun = write(files[at]);
        if (!wasRun) continue;
        ++runs.begun;
        runs.lastWasRun = *wasRun;
        runs.wasStopped = parts.runner.wasStopped();
        if (runs.wasStopped) break;
    }
    return runs;
}

bool isKnown(const fs::path& file, const TellLeftOut& tell) {
    if (tags::findExtension(file) != nullptr) return true;
    tell(cannotBeModified(file));
    return false;
}

std::string bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool canStandInList(const fs::path& file) {
    const std::string& name = file.native();
    return name.find('\n') == std::string::npos && !name.ends_with('\r');
}

}  // namespace

QString cannotBeModified(const fs::path& file) {
    return platform::display(file) + QStringLiteral(" cannot be modified");
}

FileRuns removeTagsFromFiles(const jobs::OperationParts& parts, const QString& title,
                             const std::vector<TagAddress>& tags, const std::vector<fs::path>& files,
                             const TellLeftOut& tell) {
    if (tags.empty()) return {};
    return runOverFiles(parts, title, files, [&](const fs::path& file) -> std::optional<bool> {
        if (!isKnown(file, tell)) return std::nullopt;
        parts.runner.copyForSafety(file);
        return parts.runner.runWriteLine({file}, removeTagsOfSelectionCommand(parts.context, tags, file)) ==
               1;
    });
}

FileRuns removeTagsFromShownFile(const jobs::OperationParts& parts, const QString& title,
                                 const std::vector<TagAddress>& tags, const fs::path& file,
                                 const TellLeftOut& tell) {
    if (tags.empty()) return {};
    return runOverFiles(parts, title, {file}, [&](const fs::path& shown) -> std::optional<bool> {
        if (!isKnown(shown, tell)) return std::nullopt;
        parts.runner.copyForSafety(shown);
        return parts.runner.runWriteLine({shown}, removeTagsOfFileCommand(parts.context, tags, shown)) == 1;
    });
}

int removeTypes(const jobs::OperationParts& parts, const QString& title,
                const std::vector<std::string>& groups, const std::vector<fs::path>& files) {
    const jobs::FileProgressScope scope(parts.progress, title, kOneRun);
    const exiftool::FileList list = parts.runner.WriteFileList(files);
    if (groups.empty() || list.listed == 0 || list.path.empty()) return 0;
    return parts.runner.runWriteLine(files, removeTypesCommand(parts.context, groups, list.path));
}

FileRuns deleteAllTags(const jobs::OperationParts& parts, const QString& title, const DeleteAllChoice& choice,
                       bool makeSafetyCopies, const std::vector<fs::path>& files) {
    if (choice.choosesNothing()) return {};
    const WithoutSafetyCopies copies(parts.runner, !makeSafetyCopies);
    const platform::CommandText arguments = deleteAllArguments(parts.context, choice);
    return runOverFiles(parts, title, files, [&](const fs::path& file) -> std::optional<bool> {
        return parts.runner.RunOnFile(file, arguments) == 1;
    });
}

FileRuns removeFamily(const jobs::OperationParts& parts, const QString& title, int commandId,
                      const std::vector<fs::path>& files) {
    exiftool::WriteCommands writes(parts.context, parts.runner);
    return runOverFiles(parts, title, files, [&](const fs::path& file) -> std::optional<bool> {
        return writes.RemoveFamilyFromSelection(commandId, {file});
    });
}

FileRuns copyTags(const jobs::OperationParts& parts, const QString& title, exiftool::CopiedFamilies families,
                  const fs::path& source, const std::vector<fs::path>& files) {
    if (!families.exif && !families.iptc && !families.xmp) return {};
    exiftool::WriteCommands writes(parts.context, parts.runner);
    return runOverFiles(parts, title, files, [&](const fs::path& file) -> std::optional<bool> {
        return writes.CopyTagsFromFile(families, source, {file});
    });
}

std::vector<HeldTag> readHeldTags(const jobs::OperationParts& parts, const std::vector<fs::path>& files) {
    if (files.empty()) return {};
    const QString title =
        parts.language.formatted(text::kReadingTags, {filesText(parts.language, files.size())});
    const jobs::FileProgressScope scope(parts.progress, title, kOneRun);
    std::vector<fs::path> listed;
    std::vector<fs::path> others;
    std::partition_copy(files.begin(), files.end(), std::back_inserter(listed), std::back_inserter(others),
                        canStandInList);
    // The list is only read here, and nobody's photo changes.
    const WithoutSafetyCopies copies(parts.runner, true);
    const exiftool::FileList list = parts.runner.WriteFileList(listed);
    const fs::path output = parts.context.tempPath / kReadOutput;
    const platform::CommandText command = heldTagsCommand(parts.context, list.path, others, output);
    if (parts.runner.RunToolLine(command) == 0) return {};
    return heldTags(bytesOf(output), parts.dictionary);
}

std::vector<HeldTag> readHeldTagsOfGroup(const jobs::OperationParts& parts, const fs::path& file,
                                         const std::string& group) {
    if (parts.context.settings.exifTool.correctedCommands) {
        std::vector<HeldTag> held = readHeldTags(parts, {file});
        const auto id = tags::FindGroup(QStringLiteral("[%1]").arg(QString::fromStdString(group)));
        std::erase_if(held, [&](const HeldTag& tag) { return tag.groupId != id; });
        return held;
    }
    const fs::path output = parts.context.tempPath / kReadOutput;
    if (!isPlainName(group) || parts.reads.ReadGroupAll(file, output, group) == 0) return {};
    return heldTags(bytesOf(output), parts.dictionary);
}

}  // namespace taglists

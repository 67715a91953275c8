#include "taglists/WhatIsLeft.h"

#include "app/CommandTable.h"
#include "app/SpokenText.h"
#include "exiftool/LineParts.h"
#include "exiftool/OutcomeJudge.h"
#include "exiftool/ReportFile.h"
#include "platform/RegularFile.h"
#include "platform/Text.h"
#include "taglists/TagListTexts.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

namespace taglists {

namespace fs = std::filesystem;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using platform::CommandText;

namespace {

constexpr std::string_view kFileHeading = "======== ";
constexpr std::size_t kShownNames = 5;
/// ExifTool adds what it changes behind a PDF, within the last lines of which it says so.
constexpr std::string_view kPdfRevision = "%EndExifToolUpdate";
constexpr std::uint64_t kPdfEnd = 512;

/// JPEG files keep it in there, and removing the one removes the other.
constexpr const char* kWithinPhotoshop = "IPTC";

/// What describes a picture, and not how it is stored.
constexpr auto kFamilies =
    std::to_array<std::string_view>({"EXIF", "IPTC", "XMP", "MakerNotes", "Photoshop", "ICC_Profile", "PDF"});

/// Without these nobody could open the file: they say how its picture or its pages are stored.
constexpr auto kStructure = std::to_array<std::string_view>({
    "ActiveArea",
    "BitsPerSample",
    "BlackLevel",
    "BlackLevelRepeatDim",
    "CFALayout",
    "CFAPattern2",
    "CFAPlaneColor",
    "CFARepeatPatternDim",
    "ColorMap",
    "Compression",
    "DNGBackwardVersion",
    "DNGVersion",
    "ExtraSamples",
    "FillOrder",
    "ImageHeight",
    "ImageWidth",
    "JPEGTables",
    "JpgFromRawLength",
    "JpgFromRawStart",
    "Linearized",
    "OldSubfileType",
    "OtherImageLength",
    "OtherImageStart",
    "PDFVersion",
    "PageCount",
    "PhotometricInterpretation",
    "PlanarConfiguration",
    "Predictor",
    "PreviewImageLength",
    "PreviewImageStart",
    "RowsPerStrip",
    "SampleFormat",
    "SamplesPerPixel",
    "StripByteCounts",
    "StripOffsets",
    "SubfileType",
    "TileByteCounts",
    "TileLength",
    "TileOffsets",
    "TileWidth",
    "WhiteLevel",
    "YCbCrCoefficients",
    "YCbCrPositioning",
    "YCbCrSubSampling",
});
static_assert(std::ranges::is_sorted(kStructure));

struct Command {
    int id;
    std::string_view group;  ///< empty: everything
};

constexpr auto kCommands = std::to_array<Command>({
    {app::command::kRemoveExif, "EXIF"},
    {app::command::kRemoveIptc, "IPTC"},
    {app::command::kRemoveXmp, "XMP"},
    {app::command::kRemoveIccProfile, "ICC_Profile"},
    {app::command::kRemoveGps, "GPS"},
    {app::command::kRemoveAllMetadata, {}},
    {app::command::kRemoveEverything, {}},
});

/// A tag as it is printed: `[EXIF:IFD0]  Artist  : Ada`, or `[IPTC]` where both groups are the same.
struct HeldName {
    std::string family;
    std::string group;
    std::string name;
};

std::optional<HeldName> heldName(std::string_view line) {
    const std::size_t end = line.find(']');
    if (!line.starts_with('[') || end == std::string_view::npos) return std::nullopt;
    const std::string_view groups = line.substr(1, end - 1);
    const std::size_t colon = groups.find(':');
    const std::size_t begin = std::min(line.find_first_not_of(' ', end + 1), line.size());
    const std::string_view name = line.substr(begin, line.find_first_of(" :", begin) - begin);
    return HeldName{std::string(groups.substr(0, colon)),
                    std::string(colon == std::string_view::npos ? groups : groups.substr(colon + 1)),
                    std::string(name)};
}

bool isAsked(const AskedGroups& asked, const HeldName& tag) {
    if (std::ranges::binary_search(kStructure, std::string_view(tag.name))) return false;
    // The one tag of its family that people write.
    if (asked.everything && tag.family == "File") return tag.name == "Comment";
    if (asked.everything)
        return std::ranges::find(kFamilies, std::string_view(tag.family)) != kFamilies.end();
    return std::ranges::any_of(asked.groups, [&](const std::string& group) {
        const std::string lower = platform::lowerAscii(group);
        return lower == platform::lowerAscii(tag.family) || lower == platform::lowerAscii(tag.group);
    });
}

CommandText readLine(const app::AppContext& context, const AskedGroups& asked) {
    CommandText line = exiftool::toolStart(context);
    line.literal("-a -G0:1 -s ").literal(exiftool::kFileNameCharset);
    for (const std::string& group : asked.groups)
        if (isPlainName(group)) line.literal("-").outside(group).literal(":All ");
    return line;
}

using Held = std::map<fs::path, std::vector<HeldName>>;

/// What of it each of the files holds; a file that could not be read is missing.
class HeldNames {
 public:
    HeldNames(jobs::JobWork& work, const AskedGroups& asked) : work_(work), asked_(asked) {}

    Held of(const std::vector<fs::path>& files) {
        std::vector<fs::path> listed;
        for (const fs::path& file : files) {
            if (files.size() > 1 && exiftool::canStandOnLine(exiftool::fileWord(file)))
                listed.push_back(file);
            else
                readAlone(file);
        }
        if (!listed.empty()) readListed(listed);
        return std::move(held_);
    }

 private:
    void readAlone(const fs::path& file) {
        CommandText line = readLine(work_.context, asked_);
        line.literal("\"").outside(exiftool::fileWord(file)).literal("\"");
        take(work_.runner.runReadLine({file}, line), exiftool::fileWord(file));
    }

    void readListed(const std::vector<fs::path>& files) {
        const std::uint8_t copies = std::exchange(work_.runner.safetyCopies().SafetyCopyEnabled, 0);
        const exiftool::FileList list = work_.runner.WriteFileList(files);
        work_.runner.safetyCopies().SafetyCopyEnabled = copies;
        if (list.path.empty()) return;
        CommandText line = readLine(work_.context, asked_);
        line.literal("-@ \"").outside(platform::narrow(list.path)).literal("\"");
        // Of a single file ExifTool prints no heading.
        take(work_.runner.runReadLine(files, line),
             files.size() == 1 ? exiftool::fileWord(files.front()) : std::string());
    }

    /// current: the file of what stands before the first heading.
    void take(const exiftool::ReadRun& run, std::string current) {
        std::map<std::string, std::vector<HeldName>, std::less<>> byWord;
        for (std::string_view rest = run.printed; !rest.empty();) {
            const std::size_t end = std::min(rest.find('\n'), rest.size());
            const std::string_view line = rest.substr(0, end);
            rest.remove_prefix(std::min(end + 1, rest.size()));
            if (line.starts_with(kFileHeading)) current = line.substr(kFileHeading.size());
            const std::optional<HeldName> tag = heldName(line);
            if (tag && isAsked(asked_, *tag)) byWord[current].push_back(*tag);
        }
        for (const Outcome& outcome : run.outcomes) {
            const bool isRead = exiftool::isWritten(outcome.kind) || outcome.kind == OutcomeKind::Unchanged;
            if (isRead) held_[outcome.file] = std::move(byWord[exiftool::fileWord(outcome.file)]);
        }
    }

    jobs::JobWork& work_;
    const AskedGroups& asked_;
    Held held_;
};

/// "IFD0 (Artist, Make), GPS (GPSLatitude, 7 more)"
std::string listOf(const std::vector<HeldName>& tags) {
    struct Group {
        std::string name;
        std::vector<std::string> tags;
    };
    std::vector<Group> groups;
    for (const HeldName& tag : tags) {
        if (std::ranges::find(groups, tag.group, &Group::name) == groups.end())
            groups.push_back({tag.group, {}});
        std::ranges::find(groups, tag.group, &Group::name)->tags.push_back(tag.name);
    }
    std::string list;
    for (const auto& [group, names] : groups) {
        list += (list.empty() ? "" : ", ") + group + " (";
        const std::size_t shown = std::min(names.size(), kShownNames);
        for (std::size_t at = 0; at < shown; ++at) list += (at == 0 ? "" : ", ") + names[at];
        if (names.size() > shown)
            list += ", " + app::spokenText(text::kMoreTags, {QString::number(names.size() - shown)});
        list += ')';
    }
    return list;
}

bool canBeRecovered(const fs::path& file) {
    const platform::RegularFile opened(file);
    const std::uint64_t from = opened.size() > kPdfEnd ? opened.size() - kPdfEnd : 0;
    std::string end(static_cast<std::size_t>(opened.size() - from), '\0');
    end.resize(opened.readAt(from, std::as_writable_bytes(std::span(end))));
    return end.find(kPdfRevision) != std::string::npos;
}

void tell(jobs::JobWork& work, Outcome& outcome, const std::string& what) {
    const bool hasFailed = outcome.kind == OutcomeKind::Unchanged;
    const std::string line =
        (hasFailed ? "Error: " : "Warning: ") + what + " - " + platform::narrow(outcome.file);
    outcome = exiftool::withWords(std::move(outcome), line);
    if (hasFailed) outcome.kind = OutcomeKind::Failed;
    // Where the report cannot be written the outcome still tells it.
    static_cast<void>(exiftool::appendToReport(work.context, line));
}

}  // namespace

AskedGroups askedByCommand(int commandId) {
    const auto row = std::ranges::find(kCommands, commandId, &Command::id);
    if (row == kCommands.end()) return {};
    if (row->group.empty()) return {.everything = true};
    return {.groups = {std::string(row->group)}};
}

AskedGroups askedByChoice(const DeleteAllChoice& choice) {
    AskedGroups asked{.everything = choice.everything};
    if (choice.everything) return asked;
    if (choice.exif) asked.groups.emplace_back("EXIF");
    if (choice.iptc) asked.groups.emplace_back("IPTC");
    if (choice.xmp) asked.groups.emplace_back("XMP");
    return asked;
}

void tellWhatIsLeft(jobs::JobWork& work, const AskedGroups& asked, std::span<Outcome> outcomes) {
    if (asked.groups.empty() && !asked.everything) return;
    std::vector<fs::path> files;
    for (const Outcome& outcome : outcomes)
        if (exiftool::isWritten(outcome.kind) || outcome.kind == OutcomeKind::Unchanged)
            files.push_back(outcome.file);
    if (files.empty()) return;
    const Held held = HeldNames(work, asked).of(files);
    for (Outcome& outcome : outcomes) {
        if (!exiftool::isWritten(outcome.kind) && outcome.kind != OutcomeKind::Unchanged) continue;
        const auto found = held.find(outcome.file);
        if (found == held.end()) {
            if (exiftool::isWritten(outcome.kind)) tell(work, outcome, app::spokenText(text::kLeftNotRead));
            continue;
        }
        // ExifTool says so itself where it may make small complaints.
        const bool isSaid = outcome.words.find("recovered") != std::string::npos;
        if (exiftool::isWritten(outcome.kind) && !isSaid && canBeRecovered(outcome.file))
            tell(work, outcome, app::spokenText(text::kCanBeRecovered));
        if (!found->second.empty())
            tell(work, outcome, app::spokenText(text::kStillInFile, {platform::wide(listOf(found->second))}));
    }
}

std::vector<std::string> groupsOfNone(jobs::JobWork& work, const std::vector<std::string>& groups,
                                      const std::vector<fs::path>& files) {
    AskedGroups asked{.groups = groups};
    asked.groups.emplace_back(kWithinPhotoshop);
    const Held held = HeldNames(work, asked).of(files);
    if (held.size() < files.size()) return {};
    std::vector<std::string> none;
    std::ranges::copy_if(groups, std::back_inserter(none), [&](const std::string& group) {
        AskedGroups one{.groups = {group}};
        if (group == "Photoshop") one.groups.emplace_back(kWithinPhotoshop);
        return std::ranges::none_of(held, [&](const auto& file) {
            return std::ranges::any_of(file.second, [&](const HeldName& tag) { return isAsked(one, tag); });
        });
    });
    return none;
}

}  // namespace taglists

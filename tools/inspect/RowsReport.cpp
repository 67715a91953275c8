#include "inspect/RowsReport.h"

#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "exiftool/MetadataLoad.h"
#include "inspect/JsonLines.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "platform/UniqueFile.h"

#include <system_error>

namespace inspect {

namespace fs = std::filesystem;

namespace {

/// A temp folder of this run's own, so that several runs do not meet.
class WorkFolder {
 public:
    WorkFolder() : path_(platform::makeUniqueFolder(fs::temp_directory_path() / "tagwright-inspect-")) {}
    ~WorkFolder() {
        std::error_code error;
        if (!path_.empty()) fs::remove_all(path_, error);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const fs::path& path() const { return path_; }

 private:
    fs::path path_;
};

/// Why the file cannot be read, or nothing. Devices and pipes are never opened.
std::optional<std::string> refusal(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (error) return error.message();
    if (fs::is_directory(status)) return "is a folder";
    if (!fs::is_regular_file(status)) return "is no regular file";
    const std::error_code refused = platform::checkAccess(file, platform::AccessRight::Read);
    return refused ? std::optional(refused.message()) : std::nullopt;
}

class RowPrinter : public exiftool::LoadTarget {
 public:
    RowPrinter(std::ostream& output, const QString& file) : output_(output), file_(file) {}

    void InsertMetadataRow(tags::MetadataRow&& row) override {
        JsonLine line;
        line.text("file", file_).number("groupId", row.groupId).text("group", row.group);
        line.number("itemIndex", row.itemIndex).number("tagId", row.tagId).text("tag", row.tag);
        line.text("id", row.id).text("value", row.value);
        if (row.stars)
            line.number("image", *row.stars);
        else
            line.null("image");
        output_ << line.finish() << '\n';
    }

    void SetGroupCount(std::uint32_t groupId, int count) override { counts_.emplace_back(groupId, count); }

    void finish(const tags::OutputParser& parser, const tags::RatingLog& log) {
        JsonLine counts;
        for (const auto& [groupId, count] : counts_)
            counts.number(headerOf(parser, groupId).toUtf8().constData(), count);
        QStringList ratings;
        for (const tags::RatingLog::Entry& entry : log.entries())
            ratings.append(QStringLiteral("[%1,%2]").arg(entry.tagId).arg(entry.rating));
        JsonLine line;
        line.text("file", file_).json("counts", counts.finish());
        line.json("ratings", QStringLiteral("[%1]").arg(ratings.join(u',')).toStdString());
        output_ << line.finish() << '\n';
    }

 private:
    static QString headerOf(const tags::OutputParser& parser, std::uint32_t groupId) {
        if (groupId < tags::kGroupCount) return tags::groupName(groupId);
        return parser.extraGroups().at(static_cast<qsizetype>(groupId) - tags::kGroupCount);
    }

    std::ostream& output_;
    QString file_;
    std::vector<std::pair<std::uint32_t, int>> counts_;
};

app::AppContext contextFor(const RowsRequest& request, const fs::path& workFolder, std::ostream& errors) {
    app::AppContext context;
    context.installPath = request.installPath;
    context.tempPath = workFolder;
    if (request.settingsFile) {
        app::AppContext given;
        given.iniPath = *request.settingsFile;
        if (const QString fault = app::loadSettingsOrDefaults(given); !fault.isEmpty())
            errors << request.settingsFile->native() << ": " << fault.toStdString() << '\n';
        context.settings.metadataList = given.settings.metadataList;
        context.settings.exifTool = given.settings.exifTool;
    }
    app::resolveTools(context);
    return context;
}

class RowsReport {
 public:
    explicit RowsReport(const app::AppContext& context)
        : context_(context), runner_(context), commands_(context, runner_, readFeedback_) {}

    std::optional<std::string> report(const fs::path& file, RowsFrom from, std::ostream& output) {
        if (auto refused = refusal(file)) return refused;
        tags::RatingMemory memory;
        tags::RatingLog log;
        tags::OutputParser parser(dictionary_, context_.settings, memory, log);
        RowPrinter printer(output, platform::display(file));
        const auto insert = [&](tags::MetadataRow&& row) { printer.InsertMetadataRow(std::move(row)); };
        if (from == RowsFrom::SavedOutput) {
            parser.begin();
            if (!parser.ParseExifToolOutput(file, insert)) return "cannot be opened";
            parser.forEachShownCount(
                [&](std::uint32_t group, int count) { printer.SetGroupCount(group, count); });
        } else {
            if (context_.exifToolPath.empty()) return "ExifTool was not found";
            exiftool::LoadFeedback silent;
            exiftool::MetadataLoad load(context_, runner_, commands_, parser);
            if (load.LoadMetadata(fs::absolute(file), printer, silent) == 0) return "cannot be read";
        }
        printer.finish(parser, log);
        return std::nullopt;
    }

 private:
    const app::AppContext& context_;
    tags::TagDictionary dictionary_;
    exiftool::ToolRunner runner_;
    exiftool::ReadFeedback readFeedback_;
    exiftool::ReadCommands commands_;
};

}  // namespace

bool reportRows(const RowsRequest& request, std::ostream& output, std::ostream& errors) {
    if (request.settingsFile) {
        if (const auto refused = refusal(*request.settingsFile)) {
            errors << request.settingsFile->native() << ": " << *refused << '\n';
            return false;
        }
    }
    const WorkFolder work;
    if (work.path().empty()) {
        errors << "no folder for temporary files\n";
        return false;
    }
    const app::AppContext context = contextFor(request, work.path(), errors);
    RowsReport report(context);
    bool allRead = true;
    for (const fs::path& file : request.files) {
        const auto failure = report.report(file, request.from, output);
        if (!failure) continue;
        errors << file.native() << ": " << *failure << '\n';
        allRead = false;
    }
    return allRead;
}

}  // namespace inspect

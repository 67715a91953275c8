#include "sweep/Sweep.h"

#include "app/LanguageFile.h"
#include "edit/PanelEdit.h"
#include "edit/TrialWrite.h"
#include "exiftool/LineParts.h"
#include "exiftool/MetadataLoad.h"
#include "exiftool/WriteTag.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "sweep/ChangedValue.h"
#include "sweep/ExpectedChanges.h"

#include <algorithm>
#include <vector>

namespace sweep {

namespace fs = std::filesystem;
using app::CommandForm;
using exiftool::OutcomeKind;

namespace {

constexpr int kEnglish = 9;

struct Line {
    std::string group;
    std::string tag;
    std::string text;

    auto operator<=>(const Line&) const = default;
};

Line lineOf(std::string_view bytes) {
    Line line;
    line.text = bytes;
    const std::size_t end = bytes.find("] ");
    const std::size_t colon = end == bytes.npos ? end : bytes.find(':', end);
    if (!bytes.starts_with('[') || colon == bytes.npos) return line;
    line.group = bytes.substr(1, end - 1);
    line.tag = bytes.substr(end + 2, colon - end - 2);
    return line;
}

class Rows : public exiftool::LoadTarget {
 public:
    void InsertMetadataRow(tags::MetadataRow&& row) override { all.push_back(std::move(row)); }
    void SetGroupCount(std::uint32_t, int) override {}

    std::vector<tags::MetadataRow> all;
};

class FileSweep {
 public:
    FileSweep(const app::AppContext& context, exiftool::WarmStarter* starter, const fs::path& file,
              Figures& figures, std::ostream& output)
        : context_(context), file_(file), figures_(figures), output_(output) {
        runner_.setWarmStarter(starter);
    }

    void run() {
        ++figures_.files;
        copy_ = context_.tempPath / "sweep";
        copy_ += file_.extension();
        if (!makeCopy()) return;
        before_ = lines();
        for (const tags::MetadataRow& row : rows()) sweepRow(row);
        std::error_code ignored;
        fs::remove(copy_, ignored);
    }

 private:
    bool makeCopy() {
        std::error_code error;
        fs::remove(copy_, error);
        const bool isCopied = fs::copy_file(file_, copy_, error);
        fs::permissions(copy_, fs::perms::owner_read | fs::perms::owner_write, error);
        if (!isCopied) output_ << file_.native() << ": cannot be copied\n";
        return isCopied;
    }

    std::vector<tags::MetadataRow> rows() {
        Rows rows;
        tags::OutputParser parser(dictionary_, context_.settings, memory_, log_);
        exiftool::LoadFeedback silent;
        exiftool::MetadataLoad load(context_, runner_, reads_, parser);
        if (load.LoadMetadata(copy_, rows, silent) == 0) output_ << file_.native() << ": cannot be read\n";
        return std::move(rows.all);
    }

    /// All of the file, sorted, but what the file system and the program itself tell.
    std::vector<Line> lines() {
        const fs::path answer = context_.tempPath / "Lines.txt";
        platform::CommandText command = exiftool::toolStart(context_);
        command.literal("-a -G1 -S -ec -x System:All --ExifToolVersion \"").outside(copy_.native());
        command.literal("\" >\"").outside(answer.native()).literal("\"");
        static_cast<void>(runner_.RunToolLine(command));
        std::vector<Line> lines;
        static_cast<void>(platform::forEachLineOfOwnFile(answer, [&](std::string_view bytes) {
            lines.push_back(lineOf(bytes));
            return true;
        }));
        std::ranges::sort(lines);
        return lines;
    }

    void tell(const char* what, const tags::MetadataRow& row, const std::string& words) {
        std::string line = words;
        std::ranges::replace(line, '\n', ' ');
        output_ << what << '\t' << file_.filename().native() << '\t' << platform::narrow(row.group) << ':'
                << platform::narrow(row.tag) << '\t' << line << '\n';
    }

    void sweepRow(const tags::MetadataRow& row) {
        const auto record =
            row.tagId < 0 ? std::nullopt : dictionary_.FindTagById(static_cast<std::uint32_t>(row.tagId));
        if (edit::actionOfClick(parts_, CommandForm::Corrected, row, record, false) !=
            edit::PanelAction::EditValue)
            return;
        ++figures_.rows;
        if (!makeCopy()) return;
        const auto [before, fault, refusal] =
            edit::contextOfRow(parts_, CommandForm::Corrected, copy_, row, *record);
        tags::TagEditContext after = before;
        if (!fault.isEmpty() || !refusal.isEmpty()) return decline(row, fault + refusal);
        if (!changeValue(parts_, *record, after)) return decline(row, QStringLiteral("no other value"));
        if (edit::kindOfDialog(before, *record) == tags::ValueKind::Text) {
            const QString held = edit::refusalOfText(parts_, CommandForm::Corrected, before, after);
            if (!held.isEmpty()) return decline(row, held);
        }
        const app::CurrentEdit edit =
            edit::editOfRow(parts_, CommandForm::Corrected, before, after, *record, 0);
        judge(row, edit, exiftool::WriteOneTag(context_, CommandForm::Corrected, runner_, copy_, edit));
    }

    void decline(const tags::MetadataRow& row, const QString& why) {
        ++figures_.declined;
        tell("declined", row, platform::narrow(why));
    }

    void judge(const tags::MetadataRow& row, const app::CurrentEdit& edit, const exiftool::Outcome& outcome) {
        if (!exiftool::isWritten(outcome.kind) && outcome.kind != OutcomeKind::Unchanged) {
            ++figures_.refused;
            return tell("refused", row, outcome.words);
        }
        const std::vector<Line> after = lines();
        std::vector<Line> gone;
        std::vector<Line> come;
        std::ranges::set_difference(before_, after, std::back_inserter(gone));
        std::ranges::set_difference(after, before_, std::back_inserter(come));
        bool isChanged = false;
        std::string others;
        for (const auto& [lines, sign] : {std::pair(&gone, "- "), std::pair(&come, "+ ")}) {
            for (const Line& line : *lines) {
                const std::string_view reason = reasonOfChange(
                    platform::narrow(edit.group), platform::narrow(edit.name), line.group, line.tag);
                if (isRowOf(line, row))
                    isChanged = true;
                else if (reason.empty())
                    others += sign + line.text + " | ";
                else
                    ++figures_.expected[std::string(reason)];
            }
        }
        if (!others.empty()) {
            ++figures_.astray;
            return tell("astray", row, others);
        }
        if (!isChanged) {
            ++figures_.unchanged;
            return tell("unchanged", row, platform::narrow(edit.value) + ' ' + outcome.words);
        }
        ++figures_.written;
    }

    /// The catalogue spells some groups otherwise than ExifTool prints them.
    static bool isRowOf(const Line& line, const tags::MetadataRow& row) {
        const auto letters = [](std::string text) {
            std::erase_if(text, [](char c) { return c == '-' || c == '_'; });
            return platform::lowerAscii(text);
        };
        return letters(line.group) == letters(platform::narrow(row.group)) &&
               line.tag == platform::narrow(row.tag);
    }

    app::AppContext context_;
    fs::path file_;
    Figures& figures_;
    std::ostream& output_;
    fs::path copy_;
    std::vector<Line> before_;
    app::LanguageFile language_{context_.installPath, kEnglish};
    tags::TagDictionary dictionary_;
    tags::LabelLibrary labels_{kEnglish, dictionary_};
    tags::RatingMemory memory_;
    tags::RatingLog log_;
    exiftool::ToolRunner runner_{context_};
    exiftool::ReadFeedback feedback_;
    exiftool::ReadCommands reads_{context_, runner_, feedback_};
    jobs::OperationParts parts_{context_, language_, dictionary_, labels_, memory_, log_, runner_, reads_};
};

}  // namespace

void sweepFile(const app::AppContext& context, exiftool::WarmStarter* starter, const fs::path& file,
               Figures& figures, std::ostream& output) {
    FileSweep(context, starter, file, figures, output).run();
}

}  // namespace sweep

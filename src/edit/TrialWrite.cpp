#include "edit/TrialWrite.h"

#include "edit/EditTexts.h"
#include "edit/PanelEdit.h"
#include "edit/WholeValue.h"
#include "exiftool/WriteTag.h"
#include "platform/Text.h"
#include "tags/Entries.h"

#include <algorithm>

namespace edit {

namespace fs = std::filesystem;
using app::CommandForm;

namespace {

constexpr std::uintmax_t kLargestTried = std::uintmax_t{64} << 20;
constexpr char16_t kFirstPrintable = 0x20;
constexpr char16_t kLastPrintable = 0x7E;
constexpr char16_t kFirstKeptByte = 0xDC80;
constexpr char16_t kLastKeptByte = 0xDCFF;

/// No argument holds a zero, and half a pair is no character. A byte that was no UTF-8 comes as one.
bool isWritable(QStringView text) {
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar unit = text[at];
        if (unit.isNull()) return false;
        if (!unit.isSurrogate()) continue;
        if (unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
            ++at;
        else if (unit < kFirstKeptByte || unit > kLastKeptByte)
            return false;
    }
    return true;
}

/// A copy of the file that goes with the object.
class TrialFile {
 public:
    TrialFile(const fs::path& folder, const fs::path& file) : path_(folder / "Trial") {
        path_ += file.extension();
        std::error_code error;
        fs::remove(path_, error);
        isThere_ = fs::file_size(file, error) <= kLargestTried && !error && fs::copy_file(file, path_, error);
        fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, error);
    }
    ~TrialFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    TrialFile(const TrialFile&) = delete;
    TrialFile& operator=(const TrialFile&) = delete;

    bool isThere() const { return isThere_; }
    const fs::path& path() const { return path_; }

 private:
    fs::path path_;
    bool isThere_ = false;
};

/// What the copy holds after the write; nothing when ExifTool has not written it, which the write of the file
/// itself will tell.
std::optional<HeldValues> heldAfterTrial(const jobs::OperationParts& parts, CommandForm form,
                                         const app::CurrentEdit& edit, const fs::path& file) {
    const TrialFile trial(parts.context.tempPath, file);
    if (!trial.isThere()) return std::nullopt;
    app::AppContext context = parts.context;
    context.reportFile = parts.context.tempPath / "Trial.txt";
    static_cast<void>(parts.runner.RunToolLine(exiftool::writeTagCommand(context, form, trial.path(), edit)));
    const bool isWritten = parts.runner.lastEnd() == exiftool::OutcomeKind::Done;
    std::error_code ignored;
    fs::remove(context.reportFile, ignored);
    if (!isWritten) return std::nullopt;
    HeldValues held = readValues(parts, form, trial.path(), edit.group, edit.name);
    if (!held.fault.isEmpty()) return std::nullopt;
    return held;
}

bool areSame(const std::vector<app::Translation>& left, const std::vector<app::Translation>& right) {
    return std::ranges::equal(left, right, [](const app::Translation& one, const app::Translation& other) {
        return one.name == other.name && one.value == other.value;
    });
}

}  // namespace

bool isPlainText(QStringView text) {
    if (text.isEmpty()) return true;
    if (text.front().isSpace() || text.back().isSpace()) return false;
    return std::ranges::all_of(
        text, [](QChar c) { return c == u'\n' || (c >= kFirstPrintable && c <= kLastPrintable); });
}

QString refusalOfText(const jobs::OperationParts& parts, CommandForm form, const tags::TagEditContext& before,
                      const tags::TagEditContext& after) {
    const QStringList wanted =
        after.severalEntries ? tags::splitEntries(after.value) : QStringList(after.value);
    const bool hasOthers = !after.translations.empty();
    if (form == CommandForm::Designed || (!hasOthers && std::ranges::all_of(wanted, isPlainText))) return {};
    if (!std::ranges::all_of(wanted, isWritable))
        return parts.language.formatted(text::kNoSuchCharacter, {after.title});
    const auto record = after.tagId < 0
                            ? std::nullopt
                            : parts.dictionary.FindTagById(static_cast<std::uint32_t>(after.tagId));
    if (!record || after.filePath.empty() || !(hasOthers || parts.labels.holdsText(after.tagId))) return {};
    const app::CurrentEdit edit = editOfRow(parts, form, before, after, *record, -1);
    const std::optional<HeldValues> held = heldAfterTrial(parts, form, edit, after.filePath);
    if (!held) return {};
    // A film's atoms are not always deleted one by one.
    if (hasOthers && (!areSame(held->translations, after.translations) ||
                      held->entries.size() != (after.value.isEmpty() ? 0U : 1U)))
        return parts.language.formatted(text::kLanguagesNotKept, {after.title});
    if (held->entries.size() != 1 || held->entries.front() == wanted) return {};
    return parts.language.formatted(text::kTextNotHeld,
                                    {after.title, tags::panelText(held->entries.front())});
}

}  // namespace edit

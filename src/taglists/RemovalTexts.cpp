#include "taglists/RemovalTexts.h"
#include "jobs/OutcomeText.h"

#include <QLocale>
#include <algorithm>
#include <array>

namespace taglists {

namespace {

struct FamilyText {
    int commandId;
    int question;
};

constexpr auto kFamilyTexts = std::to_array<FamilyText>({
    {10044, text::kRemoveEverything},
    {10066, text::kRemoveExif},
    {10067, text::kRemoveIptc},
    {10068, text::kRemoveXmp},
    {10069, text::kRemoveIccProfile},
    {10071, text::kRemoveGeotag},
    {10072, text::kRemoveEverything},
});

QString question(const app::LanguageFile& language, int commandId, std::size_t files) {
    const auto* const row = std::ranges::find(kFamilyTexts, commandId, &FamilyText::commandId);
    if (row == kFamilyTexts.end()) return {};
    return language.formatted(row->question, {jobs::filesText(language, files)});
}

}  // namespace

std::optional<QString> familyRemovalQuestion(const app::LanguageFile& language, int commandId,
                                             std::size_t files) {
    const QString what = question(language, commandId, files);
    if (what.isEmpty()) return std::nullopt;
    return what + QStringLiteral("\n\n") + language.text(text::kWhatStays);
}

QString familyRemovalTitle(const app::LanguageFile& language, int commandId, std::size_t files) {
    QString title = question(language, commandId, files);
    if (title.endsWith(u'?')) title.chop(1);
    return title.trimmed();
}

QString typesRemovedText(const app::LanguageFile& language, std::span<const exiftool::Outcome> outcomes,
                         std::span<const std::string> remarks) {
    using enum exiftool::OutcomeKind;
    const std::size_t done = exiftool::countOf(outcomes, Done);
    const std::size_t warned = exiftool::countOf(outcomes, Warned);
    const std::size_t unchanged = exiftool::countOf(outcomes, Unchanged);
    QString said;
    if (done + unchanged == outcomes.size() && done > 0)
        said = language.formatted(text::kGroupsRemoved, {jobs::filesText(language, done)});
    else if (unchanged == outcomes.size() && unchanged > 0)
        said = language.text(text::kNoGroupHeld);
    else
        said = language.text(done + warned > 0 ? text::kEndedWithReport : text::kNotCarriedOut);
    for (const std::string& remark : remarks) said += u'\n' + QString::fromStdString(remark);
    return said;
}

}  // namespace taglists

#include "jobs/OutcomeText.h"

#include "app/SpokenText.h"
#include "jobs/JobTexts.h"
#include "platform/Text.h"

#include <QLocale>
#include <algorithm>
#include <array>

namespace jobs {

using exiftool::Outcome;
using exiftool::OutcomeKind;

namespace {

struct KindTexts {
    OutcomeKind kind;
    int count;  ///< "%s" is the number of files
    int word;   ///< of one file
};

constexpr auto kKindTexts = std::to_array<KindTexts>({
    {OutcomeKind::Done, text::kCountDone, text::kWordDone},
    {OutcomeKind::Warned, text::kCountWarned, text::kWordWarned},
    {OutcomeKind::Unchanged, text::kCountUnchanged, text::kWordUnchanged},
    {OutcomeKind::Failed, text::kCountFailed, text::kWordFailed},
    {OutcomeKind::Killed, text::kCountKilled, text::kWordKilled},
    {OutcomeKind::Stopped, text::kCountStopped, text::kWordStopped},
    {OutcomeKind::NotStarted, text::kCountNotStarted, text::kWordNotStarted},
    {OutcomeKind::NotBegun, text::kCountNotBegun, text::kWordNotBegun},
});

bool isGood(OutcomeKind kind) {
    return kind == OutcomeKind::Done || kind == OutcomeKind::Unchanged;
}

std::string lineOf(const app::LanguageFile& language, const Outcome& outcome, Changes changes) {
    std::string line = outcome.words;
    if (line.empty())
        line = wordsOf(language, outcome).toStdString();
    else if (outcome.kind == OutcomeKind::Warned && changes != Changes::Nothing)
        line = language.text(text::kWordWarned).toStdString() + ' ' + line;
    // ExifTool mostly names the file itself, by its whole path.
    if (line.find(platform::narrow(outcome.file.filename())) == std::string::npos)
        line += " - " + platform::narrow(outcome.file);
    return line;
}

/// Nobody need have stopped what came to its end early.
std::string whyLeft(const JobResult& result) {
    if (result.isClosing) return app::spokenText(text::kLeftClosed);
    if (result.wasStopped) return app::spokenText(text::kLeftStopped);
    for (const Outcome& outcome : result.outcomes) {
        const bool hasReason = outcome.kind == OutcomeKind::NotBegun && !outcome.words.empty();
        if (hasReason) return outcome.words.substr(0, outcome.words.find('\n'));
    }
    return app::spokenText(text::kLeftEarly);
}

}  // namespace

Verdict verdictOf(const JobResult& result) {
    if (result.outcomes.empty()) return Verdict::Nothing;
    if (exiftool::isEveryFileDone(result.outcomes)) return Verdict::Done;
    const bool isGoodThroughout = std::ranges::all_of(result.outcomes, isGood, &Outcome::kind);
    return isGoodThroughout ? Verdict::Unchanged : Verdict::Told;
}

bool isReportDue(const JobResult& result, bool showsItsOwn) {
    return !showsItsOwn || verdictOf(result) == Verdict::Told;
}

bool hasBroughtAnything(const JobResult& result) {
    return std::ranges::any_of(result.outcomes, [](const Outcome& outcome) {
        return isGood(outcome.kind) || outcome.kind == OutcomeKind::Warned;
    });
}

QString filesText(const app::LanguageFile& language, std::size_t count) {
    if (count == 1) return language.text(text::kOneFile);
    return language.formatted(text::kFiles, {QLocale().toString(static_cast<qulonglong>(count))});
}

QString summaryOf(const app::LanguageFile& language, const JobResult& result) {
    QStringList parts;
    for (const KindTexts& row : kKindTexts) {
        const std::size_t count = exiftool::countOf(result.outcomes, row.kind);
        if (count == 0) continue;
        // The first number says of what it is.
        const QString files =
            parts.isEmpty() ? filesText(language, count) : QLocale().toString(static_cast<qulonglong>(count));
        parts << language.formatted(row.count, {files});
    }
    return parts.join(QStringLiteral(", "));
}

QString wordsOf(const app::LanguageFile& language, const Outcome& outcome) {
    if (!outcome.words.empty()) return platform::wide(outcome.words);
    const auto* const row = std::ranges::find(kKindTexts, outcome.kind, &KindTexts::kind);
    return row == kKindTexts.end() ? QString() : language.text(row->word);
}

std::string reportOf(const app::LanguageFile& language, const JobResult& result) {
    std::string report = summaryOf(language, result).toStdString() + "\n\n";
    for (const Outcome& outcome : result.outcomes) {
        if (outcome.kind == OutcomeKind::NotBegun) continue;
        if (isGood(outcome.kind) && outcome.words.empty()) continue;
        report += lineOf(language, outcome, result.changes) + '\n';
    }
    for (const std::string& remark : result.remarks) report += remark + '\n';
    return report + filesLeftLine(result);
}

std::string filesLeftLine(const JobResult& result) {
    const std::size_t left = exiftool::countOf(result.outcomes, OutcomeKind::NotBegun);
    if (left == 0) return {};
    const std::string why = whyLeft(result);
    return "Warning: " + why + " - " +
           app::spokenText(left == 1 ? text::kOneLeft : text::kSeveralLeft, {QString::number(left)}) + '\n';
}

}  // namespace jobs

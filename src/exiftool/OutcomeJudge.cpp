#include "exiftool/OutcomeJudge.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

struct CountLine {
    std::string_view text;
    std::size_t ToolCounts::*count;
};

constexpr auto kCountLines = std::to_array<CountLine>({
    {"image files updated", &ToolCounts::updated},
    {"image files restored from original", &ToolCounts::updated},
    {"image files created", &ToolCounts::created},
    {"image files copied", &ToolCounts::created},
    {"image files moved", &ToolCounts::created},
    {"image files unchanged", &ToolCounts::unchanged},
    {"files failed condition", &ToolCounts::unchanged},
    {"files weren't updated due to errors", &ToolCounts::failed},
    {"files weren't created due to errors", &ToolCounts::failed},
    {"files not restored due to errors", &ToolCounts::failed},
    {"files could not be read", &ToolCounts::failed},
});

/// ExifTool's exit status when none of its files meets the condition of its command.
constexpr int kNoFileMeetsCondition = 2;

/// Calls with each line, without its end.
template <typename Visit>
void forEachLine(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        visit(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void appendLine(std::string& text, std::string_view line) {
    if (!text.empty()) text += '\n';
    text += line;
}

/// True when the line is one of the tool's count; then it is added.
bool addCount(std::string_view line, std::optional<ToolCounts>& counts) {
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string_view::npos) return false;
    line.remove_prefix(first);
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    if (error != std::errc() || end == line.data() + line.size() || *end != ' ') return false;
    line.remove_prefix(static_cast<std::size_t>(end - line.data()) + 1);
    const auto* const known = std::ranges::find(kCountLines, line, &CountLine::text);
    if (known == kCountLines.end()) return false;
    if (!counts) counts.emplace();
    (*counts).*(known->count) += number;
    return true;
}

bool isAbout(std::string_view line, std::string_view name) {
    return !name.empty() && line.find(name) != std::string_view::npos;
}

/// Which of the files the line is about; nothing for none. The longest name wins, since one may be the
/// beginning of another. A name at the very end, where ExifTool puts it, wins over one in the text.
std::optional<fs::path> subjectOf(std::string_view line, std::span<const fs::path> files) {
    const fs::path* subject = nullptr;
    bool standsAtEnd = false;
    for (const fs::path& file : files) {
        const std::string& name = file.native();
        if (!isAbout(line, name)) continue;
        const bool ends = line.ends_with(name) && line.substr(0, line.size() - name.size()).ends_with(" - ");
        const bool isBetter = subject == nullptr || (ends && !standsAtEnd) ||
                              (ends == standsAtEnd && name.size() > subject->native().size());
        if (!isBetter) continue;
        subject = &file;
        standsAtEnd = ends;
    }
    return subject == nullptr ? std::nullopt : std::optional(*subject);
}

Outcome failed(const fs::path& file, std::string words, int why) {
    if (words.empty()) words = app::spokenText(why);
    return {file, OutcomeKind::Failed, std::move(words)};
}

Outcome written(const fs::path& file, const WriteFacts& facts) {
    std::string words = facts.account.words;
    if (words.empty() && facts.child.number != 0)
        words = app::spokenText(text::kEndedWithStatus, {QString::number(facts.child.number)});
    return {file, words.empty() ? OutcomeKind::Done : OutcomeKind::Warned, std::move(words)};
}

Outcome judgeByCount(const fs::path& file, const WriteFacts& facts, bool isTouched) {
    const ToolCounts& counts = *facts.account.counts;
    const std::string& words = facts.account.words;
    if (counts.failed > 0) return failed(file, words, text::kFailed);
    if (counts.created > 0) return written(file, facts);
    if (counts.updated > 0) {
        if (isTouched) return written(file, facts);
        Outcome outcome{file, OutcomeKind::Failed, words};
        appendLine(outcome.words, app::spokenText(text::kCountedButUntouched));
        return outcome;
    }
    if (counts.unchanged > 0) return {file, OutcomeKind::Unchanged, words};
    return failed(file, words, text::kNoAccount);
}

bool hasError(const std::string& words) {
    return words.starts_with("Error") || words.find("\nError") != std::string::npos;
}

Outcome judgeEnded(const fs::path& file, const WriteFacts& facts) {
    const bool isTouched = !platform::isUntouched(facts.before, facts.after);
    if (facts.account.counts) return judgeByCount(file, facts, isTouched);
    const std::string& words = facts.account.words;
    if (facts.child.number != 0) return failed(file, words, text::kFailed);
    if (!facts.wasQuiet) return failed(file, words, text::kNoAccount);
    if (isTouched) return written(file, facts);
    if (hasError(words)) return failed(file, words, text::kFailed);
    return {file, OutcomeKind::Unchanged, words};
}

/// Nothing where the tool has ended by itself.
std::optional<Outcome> judgeUnended(const fs::path& file, const platform::ChildOutcome& child,
                                    const std::string& words) {
    if (child.kind == platform::ChildOutcome::Kind::Ended) return std::nullopt;
    Outcome cut{file, endOf(child), words};
    appendLine(cut.words, faultOf(child));
    return cut;
}

struct LossText {
    bool platform::FileLosses::*loss;
    int text;
};

constexpr auto kLossTexts = std::to_array<LossText>({
    {&platform::FileLosses::names, text::kOtherNames},
    {&platform::FileLosses::owner, text::kOwner},
    {&platform::FileLosses::attributes, text::kAttributes},
});

}  // namespace

Outcome withWords(Outcome outcome, std::string_view line) {
    appendLine(outcome.words, line);
    if (outcome.kind == OutcomeKind::Done || outcome.kind == OutcomeKind::Unchanged)
        outcome.kind = OutcomeKind::Warned;
    return outcome;
}

std::string wordsOfLosses(const platform::FileLosses& losses) {
    std::string words;
    for (const LossText& row : kLossTexts) {
        if (!(losses.*row.loss)) continue;
        if (!words.empty()) words += ", ";
        words += app::spokenText(row.text);
    }
    return words;
}

Outcome withLosses(Outcome outcome, const platform::FileLosses& losses) {
    if (!losses.any()) return outcome;
    const QString file = platform::display(outcome.file);
    const QString lost = platform::wide(wordsOfLosses(losses));
    return withWords(std::move(outcome), "Warning: " + app::spokenText(text::kNotKept, {file, lost}));
}

Outcome withoutCopy(const fs::path& file, const QString& failure) {
    return {file, OutcomeKind::Failed,
            "Error: " + app::spokenText(text::kNotWrittenWithoutCopy, {failure}) + " - " +
                platform::narrow(file)};
}

ToolAccount accountOf(std::string_view output, std::string_view errors) {
    ToolAccount account;
    forEachLine(output, [&](std::string_view line) { addCount(line, account.counts); });
    forEachLine(errors, [&](std::string_view line) {
        const bool isEmpty = line.find_first_not_of(" \t") == std::string_view::npos;
        if (!isEmpty && !addCount(line, account.counts)) appendLine(account.words, line);
    });
    return account;
}

std::string wordsOfFile(std::string_view words, const fs::path& file,
                        std::span<const fs::path> filesOfProcess) {
    std::string own;
    forEachLine(words, [&](std::string_view line) {
        const std::optional<fs::path> subject = subjectOf(line, filesOfProcess);
        if (!subject || subject->native() == file.native()) appendLine(own, line);
    });
    return own;
}

bool isQuiet(std::span<const std::string> arguments) {
    return std::ranges::any_of(arguments, [](const std::string& argument) {
        const QByteArray word = QByteArray::fromStdString(argument).toLower();
        return word == "-q" || word == "-quiet" || word == "-b" || word == "-binary";
    });
}

std::string faultOf(const platform::ChildOutcome& child) {
    using Kind = platform::ChildOutcome::Kind;
    switch (child.kind) {
        case Kind::Killed:
            return app::spokenText(text::kEndedBySignal, {QString::number(child.number)});
        case Kind::Stopped:
            return app::spokenText(text::kNotWaitedFor);
        case Kind::NotStarted:
            return app::spokenText(text::kNotStarted, {platform::wide(child.reason)});
        case Kind::Ended:
            break;
    }
    return {};
}

OutcomeKind endOf(const platform::ChildOutcome& child) {
    using Kind = platform::ChildOutcome::Kind;
    switch (child.kind) {
        case Kind::Killed:
            return OutcomeKind::Killed;
        case Kind::Stopped:
            return OutcomeKind::Stopped;
        case Kind::NotStarted:
            return OutcomeKind::NotStarted;
        case Kind::Ended:
            break;
    }
    return child.number == 0 ? OutcomeKind::Done : OutcomeKind::Failed;
}

Outcome judgeWrite(const fs::path& file, const WriteFacts& facts) {
    const std::optional<Outcome> unended = judgeUnended(file, facts.child, facts.account.words);
    return unended ? *unended : judgeEnded(file, facts);
}

Outcome judgeRead(const fs::path& file, const ReadFacts& facts) {
    if (const std::optional<Outcome> unended = judgeUnended(file, facts.child, facts.words)) return *unended;
    const int status = facts.child.number;
    const std::string ending = app::spokenText(text::kEndedWithStatus, {QString::number(status)});
    if (!facts.hasOutput) {
        if (status == 0)
            return {file, OutcomeKind::Unchanged,
                    facts.words.empty() ? app::spokenText(text::kNothingToTell) : facts.words};
        if (status == kNoFileMeetsCondition && facts.words.empty()) return {file, OutcomeKind::Unchanged, {}};
        return {file, OutcomeKind::Failed, facts.words.empty() ? ending : facts.words};
    }
    if (facts.isOneOfMany && hasError(facts.words)) return {file, OutcomeKind::Failed, facts.words};
    std::string words = facts.words;
    if (words.empty() && status != 0 && !facts.isOneOfMany) words = ending;
    return {file, words.empty() ? OutcomeKind::Done : OutcomeKind::Warned, words};
}

}  // namespace exiftool

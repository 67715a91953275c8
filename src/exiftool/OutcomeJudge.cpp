#include "exiftool/OutcomeJudge.h"

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

Outcome failed(const fs::path& file, std::string words, std::string_view why) {
    if (words.empty()) words = why;
    return {file, OutcomeKind::Failed, std::move(words)};
}

Outcome written(const fs::path& file, const WriteFacts& facts) {
    std::string words = facts.account.words;
    if (words.empty() && facts.child.number != 0)
        words = "ExifTool ended with status " + std::to_string(facts.child.number);
    return {file, words.empty() ? OutcomeKind::Done : OutcomeKind::Warned, std::move(words)};
}

Outcome judgeByCount(const fs::path& file, const WriteFacts& facts, bool isTouched) {
    const ToolCounts& counts = *facts.account.counts;
    const std::string& words = facts.account.words;
    if (counts.failed > 0) return failed(file, words, "ExifTool failed");
    if (counts.created > 0) return written(file, facts);
    if (counts.updated > 0) {
        if (isTouched) return written(file, facts);
        Outcome outcome{file, OutcomeKind::Failed, words};
        appendLine(outcome.words, "ExifTool counts the file as written, but it is as it was");
        return outcome;
    }
    if (counts.unchanged > 0) return {file, OutcomeKind::Unchanged, words};
    return failed(file, words, "ExifTool gave no account of the file");
}

bool hasError(const std::string& words) {
    return words.starts_with("Error") || words.find("\nError") != std::string::npos;
}

Outcome judgeEnded(const fs::path& file, const WriteFacts& facts) {
    const bool isTouched = !platform::isUntouched(facts.before, facts.after);
    if (facts.account.counts) return judgeByCount(file, facts, isTouched);
    const std::string& words = facts.account.words;
    if (facts.child.number != 0) return failed(file, words, "ExifTool failed");
    if (!facts.wasQuiet) return failed(file, words, "ExifTool gave no account of the file");
    if (isTouched) return written(file, facts);
    if (hasError(words)) return failed(file, words, "ExifTool failed");
    return {file, OutcomeKind::Unchanged, words};
}

Outcome cut(const fs::path& file, OutcomeKind kind, std::string words, std::string_view why) {
    appendLine(words, why);
    return {file, kind, std::move(words)};
}

/// Nothing where the tool has ended by itself.
std::optional<Outcome> judgeUnended(const fs::path& file, const platform::ChildOutcome& child,
                                    const std::string& words) {
    using Kind = platform::ChildOutcome::Kind;
    switch (child.kind) {
        case Kind::Killed:
            return cut(file, OutcomeKind::Killed, words,
                       "ExifTool was ended by signal " + std::to_string(child.number));
        case Kind::Stopped:
            return cut(file, OutcomeKind::Stopped, words, "ExifTool was not waited for any longer and ended");
        case Kind::NotStarted:
            return cut(file, OutcomeKind::NotStarted, words, "ExifTool was not started: " + child.reason);
        case Kind::Ended:
            break;
    }
    return std::nullopt;
}

}  // namespace

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

Outcome judgeWrite(const fs::path& file, const WriteFacts& facts) {
    const std::optional<Outcome> unended = judgeUnended(file, facts.child, facts.account.words);
    return unended ? *unended : judgeEnded(file, facts);
}

Outcome judgeRead(const fs::path& file, const ReadFacts& facts) {
    if (const std::optional<Outcome> unended = judgeUnended(file, facts.child, facts.words)) return *unended;
    const int status = facts.child.number;
    const std::string ending = "ExifTool ended with status " + std::to_string(status);
    if (!facts.hasOutput) {
        if (status == 0)
            return {file, OutcomeKind::Unchanged,
                    facts.words.empty() ? "ExifTool had nothing to tell" : facts.words};
        if (status == kNoFileMeetsCondition && facts.words.empty()) return {file, OutcomeKind::Unchanged, {}};
        return failed(file, facts.words, ending);
    }
    if (facts.isOneOfMany && hasError(facts.words)) return {file, OutcomeKind::Failed, facts.words};
    std::string words = facts.words;
    if (words.empty() && status != 0 && !facts.isOneOfMany) words = ending;
    return {file, words.empty() ? OutcomeKind::Done : OutcomeKind::Warned, words};
}

}  // namespace exiftool

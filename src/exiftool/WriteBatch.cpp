#include "exiftool/WriteBatch.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"
#include "exiftool/OutcomeJudge.h"
#include "platform/StandardStreams.h"

#include <algorithm>
#include <set>

namespace exiftool {

namespace fs = std::filesystem;
using platform::ChildOutcome;

namespace {

/// Errors, and what was left as it was or did not meet a condition; the file for the names comes behind.
/// ExifTool opens and closes it for each name, so that nothing waits in a buffer when it is killed.
constexpr std::string_view kNameFailedOnes = "-efile1\n";
constexpr std::string_view kNameUnchangedOnes = "-efile6\n";
constexpr std::string_view kStatus = " ${status}\n";
constexpr std::string_view kReady = "{ready1}\n";

/// What the session was made to say beside what ExifTool says by itself.
struct Answer {
    std::set<std::string, std::less<>> failed;
    std::set<std::string, std::less<>> unchanged;
    ToolAccount account;
    bool hasStatus = false;  ///< the status is one of failure
};

/// Takes the lines that are names, and those with the token, out of the text.
std::string withoutNames(std::string_view text, std::span<const BatchFile> files, const BatchAnswer& answer,
                         std::set<std::string, std::less<>>& named) {
    std::string rest;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const bool isName =
            std::ranges::any_of(files, [&](const BatchFile& file) { return file.path.native() == line; });
        if (isName)
            named.emplace(line);
        else if (!line.starts_with(answer.token))
            rest.append(line).append("\n");
    }
    return rest;
}

Answer understood(std::span<const BatchFile> files, const BatchAnswer& answer) {
    Answer said;
    const std::string output = withoutNames(answer.output, files, answer, said.unchanged);
    const std::string errors = withoutNames(answer.errors, files, answer, said.failed);
    said.account = accountOf(output, errors);
    const std::size_t mark = answer.errors.rfind(answer.token + ' ');
    said.hasStatus = mark != std::string::npos &&
                     std::string_view(answer.errors).substr(mark + answer.token.size()) != " 0\n";
    return said;
}

class BatchJudge {
 public:
    BatchJudge(std::span<const BatchFile> files, const BatchAnswer& answer)
        : files_(files), answer_(answer), said_(understood(files, answer)) {
        for (const BatchFile& file : files) paths_.push_back(file.path);
        for (const BatchFile& file : files) touched_ += isWritten(file) ? 1 : 0;
    }

    Outcomes outcomes() const {
        Outcomes all;
        bool isBehindFileInWork = false;
        for (const BatchFile& file : files_) {
            if (isBehindFileInWork) {
                all.push_back({file.path, OutcomeKind::NotBegun, {}});
            } else if (answer_.isWhole || isFinished(file)) {
                all.push_back(ofFinished(file));
            } else {
                all.push_back(ofFileInWork(file));
                isBehindFileInWork = true;
            }
        }
        return all;
    }

 private:
    bool isNamed(const BatchFile& file) const {
        return said_.failed.contains(file.path.native()) || said_.unchanged.contains(file.path.native());
    }
    bool isWritten(const BatchFile& file) const {
        return !platform::isUntouched(file.before, file.after) && !isNamed(file);
    }
    bool isFinished(const BatchFile& file) const {
        return !file.isHalfWritten && (isNamed(file) || isWritten(file));
    }

    std::string wordsOf(const BatchFile& file) const {
        return wordsOfFile(said_.account.words, file.path, paths_);
    }

    /// This file's part of the count.
    std::optional<ToolCounts> countsOf(const BatchFile& file, std::string_view words) const {
        const std::optional<ToolCounts>& whole = said_.account.counts;
        // A session that was cut has not come to its count; one that was told to be quiet never counts.
        if (answer_.isWhole && !answer_.wasQuiet && !whole) return std::nullopt;
        if (said_.failed.contains(file.path.native())) return ToolCounts{0, 0, 0, 1};
        // It is named so too when it is not there and nothing was to be made.
        if (said_.unchanged.contains(file.path.native()))
            return words.find("Error") == std::string_view::npos ? ToolCounts{0, 0, 1, 0}
                                                                 : ToolCounts{0, 0, 0, 1};
        if (isWritten(file) || (whole && whole->updated > touched_)) return ToolCounts{1, 0, 0, 0};
        return ToolCounts{};
    }

    Outcome ofFinished(const BatchFile& file) const {
        WriteFacts facts;
        facts.child.kind = ChildOutcome::Kind::Ended;
        facts.account.words = wordsOf(file);
        facts.account.counts = countsOf(file, facts.account.words);
        facts.before = file.before;
        facts.after = file.after;
        facts.wasQuiet = answer_.wasQuiet;
        const std::optional<ToolCounts>& whole = said_.account.counts;
        const bool hasOneFailed = !said_.failed.empty() || (whole && whole->failed > 0);
        if (said_.hasStatus && !hasOneFailed) facts.child.number = 1;
        return doubted(judgeWrite(file.path, facts));
    }

    /// What was written without a word behind it: the tool ended by itself before it had told what it did, or
    /// counts fewer files than have been touched, so that somebody else may have touched one.
    Outcome doubted(Outcome outcome) const {
        if (outcome.kind != OutcomeKind::Done) return outcome;
        const bool hasFallenSilent = !answer_.isWhole && answer_.child.kind == ChildOutcome::Kind::Ended;
        const std::optional<ToolCounts>& whole = said_.account.counts;
        const bool isOneTooMany = answer_.isWhole && whole && whole->updated + whole->created < touched_;
        if (!hasFallenSilent && !isOneTooMany) return outcome;
        return {outcome.file, OutcomeKind::Warned,
                app::spokenText(hasFallenSilent ? text::kEndedBeforeAccount : text::kMoreThanCounted)};
    }

    Outcome ofFileInWork(const BatchFile& file) const {
        WriteFacts facts;
        facts.child = answer_.child;
        facts.account.words = wordsOf(file);
        facts.before = file.before;
        facts.after = file.after;
        return judgeWrite(file.path, facts);
    }

    std::span<const BatchFile> files_;
    const BatchAnswer& answer_;
    Answer said_;
    std::vector<fs::path> paths_;
    std::size_t touched_ = 0;
};

}  // namespace

std::string batchRequest(std::string_view arguments, std::span<const fs::path> files,
                         std::string_view token) {
    std::string request(kNameFailedOnes);
    request.append(platform::kErrorStreamName).append("\n").append(kNameUnchangedOnes);
    request.append(platform::kOutputStreamName).append("\n");
    request.append("-echo3\n").append(token).append("\n-echo4\n").append(token).append(kStatus);
    request += arguments;
    for (const fs::path& file : files) request.append(file.native()).append("\n");
    return request += "-execute1\n";
}

bool isWholeAnswer(std::string_view output, std::string_view errors, std::string_view token) {
    const std::size_t mark = errors.rfind(token);
    return output.ends_with(kReady) && mark != std::string_view::npos &&
           errors.find('\n', mark) != std::string_view::npos &&
           output.substr(0, output.size() - kReady.size()).ends_with(std::string(token) + '\n');
}

Outcomes judgeBatch(std::span<const BatchFile> files, const BatchAnswer& answer) {
    return BatchJudge(files, answer).outcomes();
}

}  // namespace exiftool

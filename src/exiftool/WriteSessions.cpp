#include "exiftool/WriteSessions.h"

#include "app/SpokenText.h"
#include "exiftool/ArgumentLines.h"
#include "exiftool/ExifToolTexts.h"
#include "exiftool/Leftover.h"
#include "exiftool/LineParts.h"
#include "exiftool/LongArguments.h"
#include "exiftool/OutcomeJudge.h"
#include "exiftool/ToolConversation.h"
#include "exiftool/WriteBatch.h"
#include "platform/FileBelongings.h"

#include <algorithm>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <random>
#include <thread>
#include <tuple>
#include <utility>

namespace exiftool {

namespace fs = std::filesystem;
using platform::ChildOutcome;

namespace {

/// A command costs a session 2.4 ms beyond its files, which take about 5 ms each.
constexpr std::size_t kFilesAtATime = 16;
/// Behind a file of that size the cost of a command is nothing, and a stop should not have to wait for
/// several.
constexpr std::int64_t kBytesAtATime = 8'000'000;
/// A session for fewer files would take longer to start than to work.
constexpr std::size_t kFilesWorthASession = 16;
/// So many sessions in a row that died without having done one file are not followed by another.
constexpr int kBarrenSessions = 5;
constexpr std::chrono::milliseconds kEndLimit{2000};

/// One file on its way.
struct Item {
    fs::path file;  ///< as the caller named it
    fs::path word;  ///< as ExifTool gets it
    platform::FileStamp before;
    std::optional<Leftover> leftover;                    ///< from when it is begun
    std::optional<platform::FileBelongings> belongings;  ///< the same
    bool isPrepared = false;
    bool isBegun = false;
    std::string copyFailure;
};

using Batch = std::vector<std::size_t>;

std::string newToken() {
    std::random_device device;
    std::string token = "=end-of-answer-";
    for (int i = 0; i < 4; ++i) token += std::to_string(device());
    return token;
}

/// What the workers of one operation share.
class Operation {
 public:
    Operation(const WriteRequest& request, WriteStops stops, const WriteEvents& events)
        : request_(request),
          stops_(std::move(stops)),
          events_(events),
          sharing_(sharingOf(request.arguments)),
          argumentLines_(argumentLines(request.arguments)) {
        for (const fs::path& file : request.files) {
            Item item;
            item.file = file;
            item.word = fileWord(file);
            items_.push_back(std::move(item));
            outcomes_.push_back({file, OutcomeKind::NotBegun, {}});
        }
    }

    Outcomes run() {
        for (const Batch& round : rounds()) runRound(round);
        if (barrenSessions_ >= kBarrenSessions) {
            for (Outcome& outcome : outcomes_)
                if (outcome.kind == OutcomeKind::NotBegun)
                    outcome.words = app::spokenText(text::kEndsAgainAndAgain);
        }
        return std::move(outcomes_);
    }

 private:
    friend class Worker;

    /// The same file under two names, in two sessions at once, could be written by both.
    std::vector<Batch> rounds() const {
        std::vector<Batch> rounds;
        std::map<std::tuple<std::uint64_t, std::uint64_t, fs::path>, std::size_t> seen;
        for (std::size_t i = 0; i < items_.size(); ++i) {
            const platform::FileStamp stamp = platform::stampOf(items_[i].word);
            const fs::path name = stamp.isFile() ? fs::path() : items_[i].word;
            const std::size_t round = seen[{stamp.device, stamp.inode, name}]++;
            if (rounds.size() <= round) rounds.resize(round + 1);
            rounds[round].push_back(i);
        }
        return rounds;
    }

    void runRound(const Batch& round);

    bool isStopping() const { return stops_.noFurther.stop_requested() || stops_.cut.stop_requested(); }

    std::size_t sessionsFor(std::size_t files) const {
        if (sharing_ != Sharing::SeveralAtATime) return 1;
        std::size_t limit = request_.sessionLimit;
        if (limit == 0) limit = std::max(1U, std::thread::hardware_concurrency());
        return std::clamp<std::size_t>(files / kFilesWorthASession, 1, limit);
    }

    /// True when the file has to be written by a process of its own.
    bool needsOwnProcess(const Item& item) const {
        std::error_code error;
        return sharing_ == Sharing::None || !argumentLines_ || !fileLine(item.word.native()) ||
               fs::is_directory(item.word, error);
    }

    /// The next files, in their order; one that needs a process of its own comes alone. Empty at the end.
    Batch take() {
        const std::lock_guard lock(guard_);
        Batch batch;
        if (isStopping() || barrenSessions_ >= kBarrenSessions) return batch;
        const std::size_t share =
            (waiting_.size() + 2 * sessions_ - 1) / std::max<std::size_t>(2 * sessions_, 1);
        const std::size_t most =
            sharing_ == Sharing::SeveralAtATime ? std::clamp<std::size_t>(share, 1, kFilesAtATime) : 1;
        std::int64_t bytes = 0;
        while (!waiting_.empty() && batch.size() < most) {
            const Item& item = items_[waiting_.front()];
            const bool isAlone = needsOwnProcess(item);
            bytes += platform::stampOf(item.word).size;
            if (!batch.empty() && (isAlone || bytes > kBytesAtATime)) break;
            batch.push_back(waiting_.front());
            waiting_.pop_front();
            if (isAlone) break;
        }
        return batch;
    }

    void giveBack(const Batch& files) {
        const std::lock_guard lock(guard_);
        waiting_.insert(waiting_.begin(), files.begin(), files.end());
    }

    void tellBegun(std::size_t index) {
        const std::lock_guard lock(telling_);
        if (std::exchange(items_[index].isBegun, true) || !events_.fileBegun) return;
        events_.fileBegun(items_[index].file);
    }

    void tellEnded(std::size_t index, Outcome outcome) {
        const std::lock_guard lock(telling_);
        const Item& item = items_[index];
        outcome.file = item.file;
        if (!item.copyFailure.empty()) {
            outcome.words.insert(0, item.copyFailure + (outcome.words.empty() ? "" : "\n"));
            if (outcome.kind == OutcomeKind::Done || outcome.kind == OutcomeKind::Unchanged)
                outcome.kind = OutcomeKind::Warned;
        }
        outcomes_[index] = outcome;
        if (events_.fileEnded) events_.fileEnded(outcome);
    }

    void noteSession(bool hasDoneFiles) {
        const std::lock_guard lock(guard_);
        barrenSessions_ = hasDoneFiles ? 0 : barrenSessions_ + 1;
    }

    const WriteRequest& request_;
    WriteStops stops_;
    const WriteEvents& events_;
    Sharing sharing_;
    std::optional<std::string> argumentLines_;  ///< nothing when a session cannot be told them
    std::vector<Item> items_;                   ///< each is its worker's alone while it has it
    std::size_t sessions_ = 1;

    std::mutex guard_;  ///< of the next two
    std::deque<std::size_t> waiting_;
    int barrenSessions_ = 0;

    std::mutex telling_;  ///< of the outcomes and the events
    Outcomes outcomes_;
};

/// One thread with at most one session at a time.
class Worker {
 public:
    explicit Worker(Operation& operation) : operation_(operation) {}

    void work() {
        Batch batch = operation_.take();
        while (!batch.empty()) {
            if (operation_.needsOwnProcess(item(batch.front()))) {
                writeAlone(batch.front());
                batch = operation_.take();
            } else {
                batch = writeTogether(batch);
            }
        }
        endSession();
    }

 private:
    Item& item(std::size_t index) { return operation_.items_[index]; }

    /// Takes those out of the batch that are not to be written.
    void prepare(Batch& batch) {
        std::erase_if(batch, [this](std::size_t index) {
            Item& one = item(index);
            if (one.isPrepared || operation_.isStopping()) return false;
            one.isPrepared = true;
            if (!operation_.request_.beforeFile) return false;
            Prepared prepared = operation_.request_.beforeFile(one.file);
            one.copyFailure = std::move(prepared.words);
            if (!prepared.instead) return false;
            operation_.tellBegun(index);
            operation_.tellEnded(index, std::move(*prepared.instead));
            return true;
        });
    }

    /// Right before ExifTool gets them. False when it is not to get them any more.
    bool begin(const Batch& batch) {
        if (operation_.isStopping()) return false;
        for (const std::size_t index : batch) {
            Item& one = item(index);
            one.before = platform::stampOf(one.word);
            one.leftover.emplace(one.word);
            one.belongings.emplace(one.word);
            operation_.tellBegun(index);
        }
        return true;
    }

    static void removeLeftover(const Item& one, OutcomeKind kind) {
        const bool isCut =
            kind == OutcomeKind::Killed || kind == OutcomeKind::Stopped || kind == OutcomeKind::Failed;
        if (isCut) one.leftover->removeWhenUntouched();
    }

    /// Gives the next batch, whose preparation fills the time of waiting for this one.
    Batch writeTogether(Batch batch) {
        if (!session_.isRunning()) {
            const ChildOutcome started =
                session_.start(operation_.request_.exifTool, {"-stay_open", "True", "-@", "-"});
            if (started.kind == ChildOutcome::Kind::NotStarted) return tellNotStarted(batch, started);
            hasDoneFiles_ = false;
        }
        prepare(batch);
        if (batch.empty()) return operation_.take();
        if (!begin(batch)) return {};
        std::vector<fs::path> words;
        for (const std::size_t index : batch) words.push_back(item(index).word);
        const std::string token = newToken();
        const bool wasSent = session_.send(batchRequest(*operation_.argumentLines_, words, token));
        Batch next = wasSent ? operation_.take() : Batch();
        prepareShared(next);
        const BatchAnswer answer = collect(token);
        tellBatch(batch, answer);
        return next.empty() ? operation_.take() : next;
    }

    void prepareShared(Batch& batch) {
        if (!batch.empty() && !operation_.needsOwnProcess(item(batch.front()))) prepare(batch);
    }

    BatchAnswer collect(const std::string& token) {
        using Wait = ToolConversation::Wait;
        BatchAnswer answer;
        answer.token = token;
        answer.wasQuiet = isQuiet(operation_.request_.arguments);
        const Wait end =
            session_.collect([&] { return isWholeAnswer(session_.output(), session_.errors(), token); },
                             operation_.stops_.cut);
        answer.isWhole = end == Wait::Answered;
        answer.child.kind = ChildOutcome::Kind::Ended;
        if (end == Wait::Stopped) answer.child = session_.stop();
        if (end == Wait::StreamsEnded) answer.child = session_.waitForEnd(kEndLimit);
        answer.output = session_.takeOutput();
        answer.errors = session_.takeErrors();
        return answer;
    }

    void tellBatch(const Batch& batch, const BatchAnswer& answer) {
        std::vector<BatchFile> files;
        for (const std::size_t index : batch) {
            const Item& one = item(index);
            files.push_back({one.word, one.before, platform::stampOf(one.word), one.leftover->isThere()});
        }
        Outcomes outcomes = judgeBatch(files, answer);
        Batch left;
        for (std::size_t i = 0; i < batch.size(); ++i) {
            const platform::FileLosses lost = item(batch[i]).belongings->giveBack();
            item(batch[i]).belongings.reset();
            if (outcomes[i].kind == OutcomeKind::NotBegun) {
                left.push_back(batch[i]);
                continue;
            }
            if (!answer.isWhole) removeLeftover(item(batch[i]), outcomes[i].kind);
            const OutcomeKind kind = outcomes[i].kind;
            hasDoneFiles_ =
                hasDoneFiles_ || answer.isWhole || kind == OutcomeKind::Unchanged || isWritten(kind);
            operation_.tellEnded(batch[i], withLosses(std::move(outcomes[i]), lost));
        }
        if (!answer.isWhole && answer.child.kind != ChildOutcome::Kind::Stopped)
            operation_.noteSession(hasDoneFiles_);
        if (!left.empty()) operation_.giveBack(left);
    }

    Batch tellNotStarted(const Batch& batch, const ChildOutcome& started) {
        WriteFacts facts;
        facts.child = started;
        for (const std::size_t index : batch) {
            operation_.tellBegun(index);
            operation_.tellEnded(index, judgeWrite(item(index).word, facts));
        }
        return operation_.take();
    }

    void writeAlone(std::size_t index) {
        Item& one = item(index);
        Batch batch{index};
        prepare(batch);
        if (batch.empty() || !begin(batch)) return;
        ToolConversation tool;
        const LongArguments shortened(operation_.request_.arguments, operation_.request_.tempFolder);
        std::vector<std::string> arguments = shortened.arguments();
        arguments.push_back(one.word.native());
        WriteFacts facts;
        facts.before = one.before;
        facts.wasQuiet = isQuiet(operation_.request_.arguments);
        facts.child = tool.start(operation_.request_.exifTool, std::move(arguments));
        if (facts.child.kind != ChildOutcome::Kind::NotStarted) {
            tool.closeInput();
            const auto end = tool.collect([] { return false; }, operation_.stops_.cut);
            facts.child = end == ToolConversation::Wait::Stopped ? tool.stop() : tool.waitForEnd(kEndLimit);
        }
        facts.after = platform::stampOf(one.word);
        facts.account = accountOf(tool.output(), tool.errors());
        Outcome outcome = judgeWrite(one.word, facts);
        if (facts.child.kind != ChildOutcome::Kind::Ended) removeLeftover(one, outcome.kind);
        const platform::FileLosses lost = one.belongings->giveBack();
        one.belongings.reset();
        operation_.tellEnded(index, withLosses(std::move(outcome), lost));
    }

    void endSession() {
        if (!session_.isRunning()) return;
        if (session_.send("-stay_open\nFalse\n"))
            static_cast<void>(session_.waitForEnd(kEndLimit));
        else
            static_cast<void>(session_.stop());
    }

    Operation& operation_;
    ToolConversation session_;
    bool hasDoneFiles_ = false;  ///< of the running session
};

void Operation::runRound(const Batch& round) {
    waiting_.assign(round.begin(), round.end());
    sessions_ = sessionsFor(round.size());
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < sessions_; ++i) threads.emplace_back([this] { Worker(*this).work(); });
}

}  // namespace

Outcomes writeFiles(const WriteRequest& request, const WriteStops& stops, const WriteEvents& events) {
    return Operation(request, stops, events).run();
}

}  // namespace exiftool

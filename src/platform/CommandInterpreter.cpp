#include "platform/CommandInterpreter.h"

#include "platform/AtomicFile.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::string_view kZeroByte = "A zero byte cannot stand in a command.\n";
constexpr std::string_view kNoTarget = "A redirection names no file.\n";

class Scanner {
 public:
    explicit Scanner(TypedPieces typed) : typed_(typed) {}

    void read(const CommandText& text) {
        const std::string_view all = text.text();
        for (const CommandText::Piece& piece : text.pieces()) {
            const bool isInside =
                piece.origin == CommandText::Origin::Outside ||
                (piece.origin == CommandText::Origin::Typed && typed_ == TypedPieces::StayInside);
            for (std::size_t i = piece.begin; i < piece.end; ++i) {
                if (isInside) {
                    settlePending();
                    addToWord(all[i]);
                } else {
                    readByte(all[i]);
                }
            }
        }
        endCommand();
    }

    std::vector<ParsedCommand> take() { return std::move(commands_); }

 private:
    enum class Target { None, Output, Errors };

    /// A byte of the language. Two-byte signs (two quotes, two percent signs, a redirection) are settled when
    /// it is seen what follows, so that they may lie on the bounds of two pieces of the program's own.
    void readByte(char c) {
        if (pending_ == '%') {
            pending_ = 0;
            addToWord('%');
            if (c == '%') return;
        } else if (pending_ == '"') {
            pending_ = 0;
            if (c == '"') {
                addToWord('"');
                return;
            }
            inQuotes_ = false;
        } else if (pending_ == '2') {
            pending_ = 0;
            if (c == '>') {
                beginRedirection(Target::Errors);
                return;
            }
            addToWord('2');
        } else if (pending_ == '>') {
            pending_ = 0;
            if (c == '>') {
                redirection_.append = true;
                return;
            }
        }
        readFreshByte(c);
    }

    void readFreshByte(char c) {
        const bool mayLeadFurther =
            c == '%' || (c == '"' && inQuotes_) || (c == '2' && !hasWord_ && !inQuotes_);
        const bool isBlank = c == ' ' || c == '\t' || c == '\r';
        if (c == '\n') {
            endCommand();
        } else if (mayLeadFurther) {
            pending_ = c;
        } else if (c == '"') {
            hasWord_ = true;
            inQuotes_ = true;
        } else if (inQuotes_ || (!isBlank && c != '>')) {
            addToWord(c);
        } else if (isBlank) {
            endWord();
        } else {
            beginRedirection(Target::Output);
        }
    }

    /// Ends what waits for a second byte of the program's own text.
    void settlePending() {
        const char waiting = std::exchange(pending_, 0);
        if (waiting == '"') inQuotes_ = false;
        if (waiting == '%' || waiting == '2') addToWord(waiting);
    }

    void addToWord(char c) {
        if (c == 0) command_.refusal = kZeroByte;
        hasWord_ = true;
        word_ += c;
    }

    void beginRedirection(Target target) {
        endWord();
        if (target_ != Target::None) command_.refusal = kNoTarget;
        target_ = target;
        redirection_ = {};
        // Only the error stream can be appended to.
        if (target == Target::Errors) pending_ = '>';
    }

    void endWord() {
        settlePending();
        if (!hasWord_) return;
        if (target_ == Target::None) {
            command_.words.push_back(std::move(word_));
        } else {
            redirection_.target = std::move(word_);
            (target_ == Target::Output ? command_.output : command_.errors) = std::move(redirection_);
        }
        target_ = Target::None;
        word_.clear();
        hasWord_ = false;
    }

    void endCommand() {
        endWord();
        if (target_ != Target::None) command_.refusal = kNoTarget;
        if (command_ != ParsedCommand{}) commands_.push_back(std::move(command_));
        command_ = {};
        target_ = Target::None;
        inQuotes_ = false;
    }

    TypedPieces typed_;
    std::vector<ParsedCommand> commands_;
    ParsedCommand command_;
    std::string word_;
    bool hasWord_ = false;  ///< a word may be empty: two quotes
    bool inQuotes_ = false;
    char pending_ = 0;
    Target target_ = Target::None;
    Redirection redirection_;
};

}  // namespace

std::vector<ParsedCommand> parseCommands(const CommandText& text, TypedPieces typed) {
    Scanner scanner(typed);
    scanner.read(text);
    return scanner.take();
}

bool CommandOutcome::everyToolStarted() const {
    return !lines.empty() && std::all_of(lines.begin(), lines.end(), [](const LineOutcome& line) {
        return line.child.kind != ChildOutcome::Kind::NotStarted;
    });
}

bool CommandOutcome::wasStopped() const {
    return !lines.empty() && lines.back().child.kind == ChildOutcome::Kind::Stopped;
}

std::string CommandOutcome::answers() const {
    std::string all;
    for (const LineOutcome& line : lines) all += line.answer;
    return all;
}

CommandInterpreter::CommandInterpreter(std::vector<std::filesystem::path> tools, TypedPieces typed)
    : tools_(std::move(tools)), typed_(typed) {}

CommandOutcome CommandInterpreter::run(const CommandText& text, const KeepWaiting& keepWaiting) const {
    CommandOutcome outcome;
    for (const ParsedCommand& command : parseCommands(text, typed_)) {
        outcome.lines.push_back(runLine(command, keepWaiting));
        if (outcome.wasStopped()) break;
    }
    return outcome;
}

LineOutcome CommandInterpreter::runLine(const ParsedCommand& command, const KeepWaiting& keepWaiting) const {
    LineOutcome outcome;
    if (!command.refusal.empty()) {
        outcome.answer = command.refusal;
    } else if (command.words.empty() || !isTool(command.words.front())) {
        const std::string word = command.words.empty() ? std::string() : command.words.front();
        outcome.answer = '\'' + word + "' is not recognized as one of the tools that may be run.\n";
    } else {
        ChildCommand child;
        child.program = command.words.front();
        child.arguments.assign(command.words.begin() + 1, command.words.end());
        // Perl would else put a complaint about a locale that is not installed into every report.
        child.environment = {"PERL_BADLANG=0"};
        child.output = streamFor(command.output, output_);
        child.errors = streamFor(command.errors, errors_);
        outcome.child = runner_(child, keepWaiting);
        if (outcome.child.kind != ChildOutcome::Kind::NotStarted) return outcome;
        outcome.answer = outcome.child.reason + '\n';
    }
    writeAnswer(command, outcome.answer);
    return outcome;
}

ChildStream CommandInterpreter::streamFor(const std::optional<Redirection>& redirection,
                                          const std::filesystem::path& otherwise) const {
    if (!redirection && otherwise.empty()) return {};
    if (!redirection) {
        ChildStream stream = ChildStream::append(otherwise);
        stream.followsLink = false;
        return stream;
    }
    ChildStream stream = redirection->append ? ChildStream::append(redirection->target)
                                             : ChildStream::truncate(redirection->target);
    stream.followsLink =
        std::find(ownFolders_.begin(), ownFolders_.end(), stream.file.parent_path()) == ownFolders_.end();
    return stream;
}

/// Puts the answer where the line leads its error stream. What cannot be written there still stands in the
/// outcome.
void CommandInterpreter::writeAnswer(const ParsedCommand& command, std::string_view answer) const {
    if (!command.errors) return;
    const OpenedStream errors = openChildStream(streamFor(command.errors, {}), false);
    if (errors.error == 0) static_cast<void>(writeAll(errors.descriptor.get(), answer));
}

bool CommandInterpreter::isTool(const std::string& word) const {
    return !word.empty() &&
           std::find(tools_.begin(), tools_.end(), std::filesystem::path(word)) != tools_.end();
}

}  // namespace platform

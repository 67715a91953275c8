#pragma once

#include "platform/ChildProcess.h"
#include "platform/CommandText.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// How the pieces that the user typed are read.
enum class TypedPieces {
    AsTheyStand,  ///< like the program's own text: a quote ends the argument, a line end the command
    StayInside,   ///< like pieces from outside: always part of the argument they were put in
};

struct Redirection {
    std::string target;
    bool append = false;
    bool operator==(const Redirection&) const = default;
};

/// One line, taken apart.
struct ParsedCommand {
    std::vector<std::string> words;  ///< the first is the program
    std::optional<Redirection> output;
    std::optional<Redirection> errors;
    std::string refusal;  ///< why the line cannot be run; empty when it can
    bool operator==(const ParsedCommand&) const = default;
};

/// Takes command text apart into its lines; blank lines give nothing. The language: words are separated by
/// blanks and tabs; a double quote begins or ends a stretch in which they do not separate, and two quotes
/// within such a stretch stand for one; `>`, `2>` and `2>>` outside quotes lead the output or the error
/// stream to the file named by the next word, the last one counts; two percent signs stand for one; a line
/// end ends the command, also within quotes. None of this holds for the bytes of a piece from outside: they
/// are bytes of the word they stand in. A backslash is an ordinary character.
std::vector<ParsedCommand> parseCommands(const CommandText& text,
                                         TypedPieces typed = TypedPieces::AsTheyStand);

/// What became of one line.
struct LineOutcome {
    ChildOutcome child;
    std::string answer;  ///< what the interpreter itself had to say, as it stands in the line's error stream;
                         ///< else empty
};

struct CommandOutcome {
    std::vector<LineOutcome> lines;

    bool everyToolStarted() const;  ///< false also when there was no line
    bool wasStopped() const;
    std::string answers() const;  ///< the answers of all lines
};

/// Starts a child and waits for its end, like platform::runChild.
using ChildRunner = std::function<ChildOutcome(const ChildCommand& command, const KeepWaiting& keepWaiting)>;

/// Runs command text, line after line, without a shell: there are no variables, no patterns, no pipes, and no
/// program but the given tools. Any other first word is answered as an unknown command on the line's error
/// stream. Streams that a line does not redirect lead nowhere.
class CommandInterpreter {
 public:
    /// tools: the programs that may be started, by the very path that a line names them with; empty ones
    /// count not.
    explicit CommandInterpreter(std::vector<std::filesystem::path> tools,
                                TypedPieces typed = TypedPieces::AsTheyStand);

    /// Another way than runChild to run a line's tool. What it is given is what runChild would be given.
    void setChildRunner(ChildRunner runner) { runner_ = std::move(runner); }

    /// Where the streams lead that a line does not redirect: to the end of these files. An empty one, as at
    /// first: nowhere.
    void setUnredirected(std::filesystem::path output, std::filesystem::path errors) {
        output_ = std::move(output);
        errors_ = std::move(errors);
    }

    /// Folders of the program's own: where a redirection leads to a file directly in one of them, a symbolic
    /// link is not followed, and the line fails as with a file that cannot be opened.
    void setOwnFolders(std::vector<std::filesystem::path> folders) { ownFolders_ = std::move(folders); }

    /// Blocks until the last line has ended. After a no of keepWaiting no further line is run.
    CommandOutcome run(const CommandText& text, const KeepWaiting& keepWaiting = {}) const;

 private:
    LineOutcome runLine(const ParsedCommand& command, const KeepWaiting& keepWaiting) const;
    bool isTool(const std::string& word) const;
    ChildStream streamFor(const std::optional<Redirection>& redirection,
                          const std::filesystem::path& otherwise) const;
    void writeAnswer(const ParsedCommand& command, std::string_view answer) const;

    std::vector<std::filesystem::path> tools_;
    TypedPieces typed_;
    std::vector<std::filesystem::path> ownFolders_;
    ChildRunner runner_ = runChild;
    std::filesystem::path output_;
    std::filesystem::path errors_;
};

}  // namespace platform

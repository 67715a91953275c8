#include "support/KeptExifTool.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <mutex>

extern char** environ;

namespace support {

namespace fs = std::filesystem;

namespace {

bool canStandOnLine(const std::string& argument) {
    const auto isBlank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    return !argument.empty() && argument.find_first_of("\r\n") == std::string::npos &&
           argument.front() != '#' && !isBlank(argument.front()) && !isBlank(argument.back());
}

bool canBeAsked(const std::vector<std::string>& arguments) {
    bool namesFile = false;
    for (const std::string& argument : arguments) {
        std::error_code error;
        if (!canStandOnLine(argument)) return false;
        for (const char* option : {"-@", "-", "-execute", "-stay_open", "-config", "-ver"})
            if (argument == option) return false;
        const bool isAbsolute = argument.front() == '/';
        if (argument.front() != '-' && !isAbsolute && fs::exists(argument, error)) return false;
        namesFile = namesFile || isAbsolute;
    }
    return namesFile;
}

std::vector<std::string> environmentNow() {
    std::vector<std::string> all;
    for (char** entry = environ; *entry != nullptr; ++entry) all.emplace_back(*entry);
    return all;
}

class KeptExifTool {
 public:
    ~KeptExifTool() { stop(); }

    std::optional<std::string> ask(const std::vector<std::string>& arguments) {
        const std::lock_guard lock(guard_);
        // A test may have set a variable that counts for ExifTool.
        if (process_ != 0 && environment_ != environmentNow()) stop();
        if (process_ == 0 && !start()) return std::nullopt;
        const std::string number = std::to_string(++asked_);
        const std::string end = "{end of " + std::to_string(::getpid()) + "." + number + "}\n";
        std::string lines;
        for (const std::string& argument : arguments) lines += argument + '\n';
        lines += "-echo3\n" + end + "-execute" + number + "\n";
        std::optional<std::string> answer = exchange(lines, end);
        if (!answer) stop();
        return answer;
    }

 private:
    bool start() {
        std::array<int, 2> ends{};
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return false;
        environment_ = environmentNow();
        const pid_t child = ::fork();
        if (child == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            ::dup2(ends[1], STDIN_FILENO);
            ::dup2(ends[1], STDOUT_FILENO);
            if (::chdir("/") == 0)
                ::execlp("exiftool", "exiftool", "-stay_open", "True", "-@", "-",
                         static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::close(ends[1]);
        channel_ = ends[0];
        if (child > 0)
            process_ = child;
        else
            ::close(channel_);
        return child > 0;
    }

    void stop() {
        if (process_ == 0) return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        ::close(channel_);
        process_ = 0;
        left_.clear();
    }

    std::optional<std::string> exchange(std::string_view lines, const std::string& end) {
        while (!lines.empty()) {
            const ssize_t sent = ::send(channel_, lines.data(), lines.size(), MSG_NOSIGNAL);
            if (sent <= 0) return std::nullopt;
            lines.remove_prefix(static_cast<std::size_t>(sent));
        }
        std::string got = std::move(left_);
        std::array<char, 65536> buffer{};
        std::size_t at = 0;
        while ((at = got.find(end)) == std::string::npos) {
            const ssize_t count = ::recv(channel_, buffer.data(), buffer.size(), 0);
            if (count <= 0) return std::nullopt;
            got.append(buffer.data(), static_cast<std::size_t>(count));
        }
        left_ = got.substr(at + end.size());
        got.resize(at);
        // What it says of itself behind the command before this one, unless that was a quiet one.
        const std::string ready = "{ready" + std::to_string(asked_ - 1) + "}\n";
        if (got.starts_with(ready)) got.erase(0, ready.size());
        return got;
    }

    std::mutex guard_;
    pid_t process_ = 0;
    int channel_ = -1;
    int asked_ = 0;
    std::string left_;
    std::vector<std::string> environment_;
};

}  // namespace

std::optional<std::string> askKeptExifTool(const std::vector<std::string>& arguments) {
    static KeptExifTool kept;
    if (!canBeAsked(arguments)) return std::nullopt;
    return kept.ask(arguments);
}

}  // namespace support

#include "PlainProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace bench {

namespace fs = std::filesystem;

namespace {

class FileActions {
 public:
    FileActions(const fs::path& outputFile, const fs::path& errorFile) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, outputFile.c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0666);
        posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO,
                                         errorFile.empty() ? "/dev/null" : errorFile.c_str(),
                                         O_WRONLY | O_CREAT, 0666);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
    posix_spawn_file_actions_t actions_{};
};

/// A file that goes away with the object.
class ScratchFile {
 public:
    ScratchFile() {
        std::string name = (fs::temp_directory_path() / "tagwright-bench-XXXXXX").string();
        const int descriptor = ::mkstemp(name.data());
        if (descriptor < 0) throw std::runtime_error("no temporary file can be made");
        ::close(descriptor);
        path_ = name;
    }
    ~ScratchFile() {
        std::error_code error;
        fs::remove(path_, error);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const fs::path& path() const { return path_; }

 private:
    fs::path path_;
};

std::string lastLine(const fs::path& file) {
    std::ifstream lines(file);
    std::string last;
    for (std::string line; std::getline(lines, line);) last = line;
    return last;
}

}  // namespace

int runPlainly(const std::vector<std::string>& words, const fs::path& outputFile, const fs::path& errorFile) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const FileActions actions(outputFile, errorFile);
    pid_t child = 0;
    if (const int error =
            ::posix_spawn(&child, arguments[0], actions.get(), nullptr, arguments.data(), environ))
        throw std::runtime_error(words[0] + ": " + std::system_category().message(error));
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    if (!WIFEXITED(status)) throw std::runtime_error(words[0] + " was killed");
    return WEXITSTATUS(status);
}

Measurements runMeasuringProgram(const std::string& name, const std::vector<std::string>& arguments) {
    const ScratchFile output;
    const ScratchFile errors;
    std::vector<std::string> words{(fs::read_symlink("/proc/self/exe").parent_path() / name).string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const double spawned = monotonicSeconds();
    if (runPlainly(words, output.path(), errors.path()) != 0)
        throw std::runtime_error(name + " failed: " + lastLine(errors.path()));
    Measurements measurements{{"spawned", spawned}};
    std::ifstream lines(output.path());
    std::string key;
    double value = 0;
    while (lines >> key >> value) measurements[key] = value;
    return measurements;
}

double monotonicSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void printMeasurement(const char* name, double value) {
    std::printf("%s %.9f\n", name, value);
}

}  // namespace bench

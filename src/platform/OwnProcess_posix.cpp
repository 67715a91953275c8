#include "platform/OwnProcess.h"

#include <unistd.h>

#include <fstream>
#include <string>
#include <system_error>
#include <thread>

namespace platform {

ProcessId ownProcessId() {
    return ::getpid();
}

std::filesystem::path ownExecutable() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

std::filesystem::path ownWorkingFolder() {
    return "/proc/" + std::to_string(ownProcessId()) + "/cwd";
}

// umask() would set a mask in order to tell the old one.
std::optional<unsigned> ownFileMask() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("Umask:")) return static_cast<unsigned>(std::stoul(line.substr(6), nullptr, 8));
    }
    return std::nullopt;
}

void endOwnProcessWithin(std::chrono::milliseconds limit, int status) {
    std::thread([limit, status] {
        std::this_thread::sleep_for(limit);
        ::_exit(status);
    }).detach();
}

}  // namespace platform

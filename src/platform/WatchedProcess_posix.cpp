#include "platform/WatchedProcess.h"

#include "platform/Pipe.h"

#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>

namespace platform {

namespace {

FileDescriptor watched(ProcessId process) {
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(process), 0)));
}

/// 0 for a process that is gone. folder: of it below /proc.
ProcessId groupOf(const std::filesystem::path& folder) {
    std::ifstream file(folder / "stat");
    std::string line;
    std::getline(file, line);
    // The name before it is in brackets and can hold anything.
    const std::size_t nameEnd = line.rfind(')');
    if (nameEnd == std::string::npos) return 0;
    std::istringstream fields(line.substr(nameEnd + 1));
    char state = 0;
    ProcessId parent = 0;
    ProcessId group = 0;
    fields >> state >> parent >> group;
    return group;
}

void signalAll(const std::vector<FileDescriptor>& processes, int signal) {
    for (const FileDescriptor& process : processes)
        static_cast<void>(::syscall(SYS_pidfd_send_signal, process.get(), signal, nullptr, 0) == 0);
}

}  // namespace

bool WatchedProcess::watch(ProcessId process) {
    watch_ = watched(process);
    process_ = watch_.isOpen() ? process : 0;
    return watch_.isOpen();
}

bool WatchedProcess::hasEndedWithin(std::chrono::milliseconds limit) const {
    return isAnyReadableWithin({watch_.get()}, limit);
}

void WatchedProcess::stopGroup(std::chrono::milliseconds grace, std::chrono::milliseconds deathLimit) const {
    const std::vector<FileDescriptor> asked = members();
    signalAll(asked, SIGTERM);
    hasEndedWithin(grace);
    // What the process has started may outlive it, or have been started since.
    const std::vector<FileDescriptor> late = members();
    signalAll(asked, SIGKILL);
    signalAll(late, SIGKILL);
    hasEndedWithin(deathLimit);
}

std::vector<FileDescriptor> WatchedProcess::members() const {
    std::vector<FileDescriptor> members;
    if (process_ <= 1) return members;
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/proc", error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().native();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        if (groupOf(entry->path()) != process_) continue;
        const ProcessId process = std::atoi(name.c_str());
        FileDescriptor member = watched(process);
        // Asked again: between the two the number may have become another's.
        if (member.isOpen() && groupOf(entry->path()) == process_) members.push_back(std::move(member));
    }
    // While the process lives the number of its group is no other's.
    if (hasEndedWithin(std::chrono::milliseconds(0))) members.clear();
    return members;
}

}  // namespace platform

#include "platform/FolderEntries.h"

#include "platform/FileDescriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace platform {
namespace {

constexpr std::size_t kReadBytes = 256UL * 1024;
constexpr unsigned kWantedFacts = STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_BLOCKS | STATX_MTIME |
                                  STATX_ATIME | STATX_CTIME | STATX_BTIME | STATX_UID;
constexpr std::uint64_t kBlockBytes = 512;
// Below this a second thread costs more than it brings.
constexpr std::size_t kEntriesWorthAThread = 4000;

/// An entry of getdents64, as the kernel lays it out.
struct DirectoryEntry {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length;
    std::uint8_t type;
    char name[1];
};

bool isWanted(std::string_view name, bool withHidden) {
    if (name == "." || name == "..") return false;
    return withHidden || name.front() != '.';
}

FileKind kindOfMode(unsigned mode) {
    switch (mode & S_IFMT) {
        case S_IFREG:
            return FileKind::File;
        case S_IFDIR:
            return FileKind::Folder;
        case S_IFIFO:
            return FileKind::Fifo;
        case S_IFCHR:
            return FileKind::CharacterDevice;
        case S_IFBLK:
            return FileKind::BlockDevice;
        case S_IFSOCK:
            return FileKind::Socket;
        case S_IFLNK:
            return FileKind::BrokenLink;
        default:
            return FileKind::Unknown;
    }
}

std::int64_t nanoseconds(const struct statx_timestamp& time) {
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

void fill(FileFacts& facts, const struct statx& data) {
    facts.kind = kindOfMode(data.stx_mode);
    facts.isKnown = true;
    facts.owner = data.stx_uid;
    facts.size = data.stx_size;
    facts.allocatedBytes = data.stx_blocks * kBlockBytes;
    facts.modified = nanoseconds(data.stx_mtime);
    facts.accessed = nanoseconds(data.stx_atime);
    facts.created = nanoseconds((data.stx_mask & STATX_BTIME) != 0 ? data.stx_btime : data.stx_ctime);
    facts.isReadOnly = (data.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

/// The facts of an entry relative to a folder; links are followed as far as they lead. False when there is no
/// such entry.
bool lookUp(int folder, const char* name, std::uint8_t type, FileFacts& facts) {
    constexpr int kFlags = AT_NO_AUTOMOUNT;
    struct statx data;
    const bool mayBeLink = type == DT_LNK || type == DT_UNKNOWN;
    if (::statx(folder, name, kFlags | AT_SYMLINK_NOFOLLOW, kWantedFacts, &data) == 0) {
        if (mayBeLink && S_ISLNK(data.stx_mode)) {
            facts.isLink = true;
            struct statx target;
            if (::statx(folder, name, kFlags, kWantedFacts, &target) == 0) data = target;
        }
        fill(facts, data);
        return true;
    }
    if (errno == ENOENT || errno == ENOTDIR) return false;
    facts.kind = kindOfMode(DTTOIF(type));
    return true;
}

}  // namespace

std::optional<FileFacts> factsOf(const std::filesystem::path& path) {
    FileFacts facts;
    facts.isHidden = path.filename().native().starts_with('.');
    if (!lookUp(AT_FDCWD, path.c_str(), DT_UNKNOWN, facts)) return std::nullopt;
    return facts;
}

struct FolderEntries::ListedName {
    std::uint32_t offset;
    std::uint16_t length;
    std::uint8_t type;
};

FolderEntries FolderEntries::read(const std::filesystem::path& folder, const FolderReadOptions& options) {
    FolderEntries entries;
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    if (!opened.isOpen()) {
        entries.error_ = errno;
        return entries;
    }
    entries.readFacts(opened.get(), entries.readNames(opened.get(), options), options.cancelled);
    return entries;
}

std::vector<FolderEntries::ListedName> FolderEntries::readNames(int folder,
                                                                const FolderReadOptions& options) {
    std::vector<ListedName> names;
    std::vector<char> buffer(kReadBytes);
    while (options.cancelled == nullptr || !options.cancelled->load(std::memory_order_relaxed)) {
        const long got = ::syscall(SYS_getdents64, folder, buffer.data(), buffer.size());
        if (got < 0) error_ = errno;
        if (got <= 0) break;
        for (long at = 0; at < got;) {
            const auto* listed = reinterpret_cast<const DirectoryEntry*>(buffer.data() + at);
            const std::string_view name(listed->name);
            if (isWanted(name, options.withHidden)) {
                names.push_back({static_cast<std::uint32_t>(names_.size()),
                                 static_cast<std::uint16_t>(name.size()), listed->type});
                names_.insert(names_.end(), name.data(), name.data() + name.size() + 1);
            }
            at += listed->length;
        }
    }
    return names;
}

void FolderEntries::readFactsOf(int folder, const std::vector<ListedName>& listed, std::size_t first,
                                std::size_t end, const std::atomic_bool* cancelled) {
    for (std::size_t i = first; i < end; ++i) {
        if (cancelled != nullptr && cancelled->load(std::memory_order_relaxed)) return;
        Entry& entry = entries_[i];
        entry.nameOffset = listed[i].offset;
        entry.nameLength = listed[i].length;
        const char* name = names_.data() + entry.nameOffset;
        entry.facts.isHidden = name[0] == '.';
        entry.isGone = !lookUp(folder, name, listed[i].type, entry.facts);
    }
}

void FolderEntries::readFacts(int folder, const std::vector<ListedName>& listed,
                              const std::atomic_bool* cancelled) {
    const std::size_t count = listed.size();
    entries_.resize(count);
    const std::size_t threads = std::clamp<std::size_t>(count / kEntriesWorthAThread, 1,
                                                        std::max(1U, std::thread::hardware_concurrency()));
    std::vector<std::jthread> others;
    for (std::size_t i = 1; i < threads; ++i)
        others.emplace_back([=, this, &listed] {
            readFactsOf(folder, listed, count * i / threads, count * (i + 1) / threads, cancelled);
        });
    readFactsOf(folder, listed, 0, count / threads, cancelled);
    others.clear();
    std::erase_if(entries_, [](const Entry& entry) { return entry.isGone; });
}

}  // namespace platform

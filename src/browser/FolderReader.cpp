#include "browser/FolderReader.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace browser {
namespace {

constexpr std::size_t kReadBytes = 256UL * 1024;
constexpr unsigned kWantedData =
    STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_MTIME | STATX_ATIME | STATX_CTIME | STATX_BTIME | STATX_UID;
// Below this a second thread costs more than it brings.
constexpr std::size_t kItemsWorthAThread = 4000;

class Descriptor {
 public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const { return number_; }

 private:
    int number_;
};

/// An entry of getdents64, as the kernel lays it out.
struct DirectoryEntry {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length;
    std::uint8_t type;
    char name[1];
};

struct EntryName {
    std::uint32_t offset;
    std::uint16_t length;
    std::uint8_t type;
};

struct EntryNames {
    std::vector<EntryName> entries;
    std::vector<char> bytes;  // each name ends with a zero
    int errorNumber = 0;
};

bool isWanted(std::string_view name, bool showHidden) {
    if (name == "." || name == "..") return false;
    return showHidden || name.front() != '.';
}

EntryNames readNames(int folder, const ReadFolderOptions& options) {
    EntryNames names;
    std::vector<char> buffer(kReadBytes);
    while (options.cancelled == nullptr || !options.cancelled->load(std::memory_order_relaxed)) {
        const long got = ::syscall(SYS_getdents64, folder, buffer.data(), buffer.size());
        if (got < 0) names.errorNumber = errno;
        if (got <= 0) break;
        for (long at = 0; at < got;) {
            const auto* entry = reinterpret_cast<const DirectoryEntry*>(buffer.data() + at);
            const std::string_view name(entry->name);
            if (isWanted(name, options.showHidden)) {
                names.entries.push_back({static_cast<std::uint32_t>(names.bytes.size()),
                                         static_cast<std::uint16_t>(name.size()), entry->type});
                names.bytes.insert(names.bytes.end(), name.data(), name.data() + name.size() + 1);
            }
            at += entry->length;
        }
    }
    return names;
}

ItemKind kindOfMode(unsigned mode) {
    switch (mode & S_IFMT) {
        case S_IFREG:
            return ItemKind::File;
        case S_IFDIR:
            return ItemKind::Folder;
        case S_IFIFO:
            return ItemKind::Fifo;
        case S_IFCHR:
            return ItemKind::CharacterDevice;
        case S_IFBLK:
            return ItemKind::BlockDevice;
        case S_IFSOCK:
            return ItemKind::Socket;
        case S_IFLNK:
            return ItemKind::BrokenLink;
        default:
            return ItemKind::Unknown;
    }
}

ItemKind kindOfEntryType(std::uint8_t type) {
    return kindOfMode(DTTOIF(type));
}

std::int64_t nanoseconds(const struct statx_timestamp& time) {
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

void fill(ListItem& item, const struct statx& data) {
    item.kind = kindOfMode(data.stx_mode);
    item.findDataValid = true;
    item.owner = data.stx_uid;
    item.findData.size = item.isFolder() ? 0 : data.stx_size;
    item.findData.modified = nanoseconds(data.stx_mtime);
    item.findData.accessed = nanoseconds(data.stx_atime);
    item.findData.created = nanoseconds((data.stx_mask & STATX_BTIME) != 0 ? data.stx_btime : data.stx_ctime);
    if ((data.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) item.attributes |= attribute::kReadOnly;
}

enum class Found { Yes, No, WithoutData };

/// The data of an entry relative to a folder; links are followed as far as they lead.
Found lookUp(int folder, const char* name, std::uint8_t type, ListItem& item) {
    constexpr int kFlags = AT_NO_AUTOMOUNT;
    struct statx data;
    const bool mayBeLink = type == DT_LNK || type == DT_UNKNOWN;
    int failure = ::statx(folder, name, kFlags | AT_SYMLINK_NOFOLLOW, kWantedData, &data) == 0 ? 0 : errno;
    if (failure == 0) {
        if (mayBeLink && S_ISLNK(data.stx_mode)) {
            item.attributes |= attribute::kLink;
            struct statx target;
            if (::statx(folder, name, kFlags, kWantedData, &target) == 0) data = target;
        }
        fill(item, data);
        return Found::Yes;
    }
    if (failure == ENOENT || failure == ENOTDIR) return Found::No;
    item.kind = kindOfEntryType(type);
    return Found::WithoutData;
}

void lookUpRange(int folder, const EntryNames& names, std::size_t first, std::size_t end,
                 const std::atomic_bool* cancelled, std::vector<ListItem>& items) {
    for (std::size_t i = first; i < end; ++i) {
        if (cancelled != nullptr && cancelled->load(std::memory_order_relaxed)) return;
        const EntryName& entry = names.entries[i];
        const char* name = names.bytes.data() + entry.offset;
        ListItem& item = items[i];
        if (name[0] == '.') item.attributes |= attribute::kHidden;
        item.removed = lookUp(folder, name, entry.type, item) == Found::No;
    }
}

std::vector<ListItem> lookUpAll(int folder, const EntryNames& names, const std::atomic_bool* cancelled) {
    std::vector<ListItem> items(names.entries.size());
    const std::size_t count = items.size();
    const std::size_t threads = std::clamp<std::size_t>(count / kItemsWorthAThread, 1,
                                                        std::max(1U, std::thread::hardware_concurrency()));
    std::vector<std::jthread> others;
    for (std::size_t i = 1; i < threads; ++i)
        others.emplace_back([&, i] {
            lookUpRange(folder, names, count * i / threads, count * (i + 1) / threads, cancelled, items);
        });
    lookUpRange(folder, names, 0, count / threads, cancelled, items);
    others.clear();
    return items;
}

}  // namespace

FolderState folderStateOf(int errorNumber) {
    switch (errorNumber) {
        case 0:
            return FolderState::Readable;
        case ENOENT:
            return FolderState::NotFound;
        case EACCES:
        case EPERM:
            return FolderState::NotAllowed;
        case ENOTDIR:
            return FolderState::NotAFolder;
        default:
            return FolderState::Unreadable;
    }
}

QString emptyListText(FolderState state) {
    switch (state) {
        case FolderState::Empty:
            return QStringLiteral("This folder is empty");
        case FolderState::NotFound:
            return QStringLiteral("This folder does not exist any more");
        case FolderState::NotAllowed:
            return QStringLiteral("This folder cannot be read: you do not have the permission");
        case FolderState::NotAFolder:
            return QStringLiteral("This folder cannot be read: it is not a folder");
        case FolderState::Unreadable:
            return QStringLiteral("This folder cannot be read");
        case FolderState::Readable:
        case FolderState::Cancelled:
            break;
    }
    return {};
}

FolderListing readFolder(const std::filesystem::path& folder, const ReadFolderOptions& options) {
    FolderListing listing;
    listing.folder = folder;
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    if (opened.number() < 0) {
        listing.state = folderStateOf(errno);
        return listing;
    }
    const EntryNames names = readNames(opened.number(), options);
    const std::vector<ListItem> items = lookUpAll(opened.number(), names, options.cancelled);
    if (options.cancelled != nullptr && *options.cancelled) {
        listing.state = FolderState::Cancelled;
        return listing;
    }
    listing.items.reserve(items.size(), names.bytes.size() - items.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        if (!items[i].removed)
            listing.items.add({names.bytes.data() + names.entries[i].offset, names.entries[i].length},
                              items[i]);
    if (listing.items.count() > 0)
        listing.state = FolderState::Readable;
    else
        listing.state = names.errorNumber != 0 ? folderStateOf(names.errorNumber) : FolderState::Empty;
    return listing;
}

bool readItem(const std::filesystem::path& path, ListItem& item) {
    if (path.filename().native().starts_with('.')) item.attributes |= attribute::kHidden;
    return lookUp(AT_FDCWD, path.c_str(), DT_UNKNOWN, item) != Found::No;
}

}  // namespace browser

#include "browser/FolderReader.h"

#include "app/TextNumbers.h"
#include "browser/BrowserTexts.h"
#include "platform/FolderEntries.h"

#include <cerrno>

namespace browser {
namespace {

void fill(ListItem& item, const platform::FileFacts& facts) {
    item.kind = facts.kind;
    item.findDataValid = facts.isKnown;
    item.owner = facts.owner;
    item.findData = {item.isFolder() ? 0 : facts.size, facts.modified, facts.accessed, facts.created};
    if (facts.isHidden) item.attributes |= attribute::kHidden;
    if (facts.isReadOnly) item.attributes |= attribute::kReadOnly;
    if (facts.isLink) item.attributes |= attribute::kLink;
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

int emptyListText(FolderState state) {
    switch (state) {
        case FolderState::Empty:
            return app::text::kEmptyFolder;
        case FolderState::NotFound:
            return text::kFolderNotFound;
        case FolderState::NotAllowed:
            return text::kFolderNotAllowed;
        case FolderState::NotAFolder:
            return text::kNotAFolder;
        case FolderState::Unreadable:
            return text::kFolderUnreadable;
        case FolderState::Readable:
        case FolderState::Cancelled:
            break;
    }
    return 0;
}

FolderListing readFolder(const std::filesystem::path& folder, const ReadFolderOptions& options) {
    FolderListing listing;
    listing.folder = folder;
    using platform::FolderEntries;
    const FolderEntries entries = FolderEntries::read(folder, {options.showHidden, options.cancelled});
    if (options.cancelled != nullptr && *options.cancelled) {
        listing.state = FolderState::Cancelled;
        return listing;
    }
    listing.error = entries.error();
    listing.items.reserve(entries.size(), entries.nameBytes());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        ListItem item;
        fill(item, entries.facts(i));
        listing.items.add(entries.name(i), item);
    }
    if (listing.items.count() > 0)
        listing.state = FolderState::Readable;
    else
        listing.state = entries.error() != 0 ? folderStateOf(entries.error()) : FolderState::Empty;
    return listing;
}

bool readItem(const std::filesystem::path& path, ListItem& item) {
    const std::optional<platform::FileFacts> facts = platform::factsOf(path);
    if (facts) fill(item, *facts);
    return facts.has_value();
}

}  // namespace browser

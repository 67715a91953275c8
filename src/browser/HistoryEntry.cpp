#include "browser/HistoryEntry.h"

#include "platform/Text.h"

namespace browser {
namespace {

int nextId() {
    static int counter = 0;
    return counter++;
}

}  // namespace

HistoryEntry::HistoryEntry(std::filesystem::path path, QString displayName)
    : id_(nextId()), path_(std::move(path)), displayName_(std::move(displayName)) {}

void HistoryEntry::setSystemIconIndex(int index) {
    if (systemIconIndex_ == index) return;
    systemIconIndex_ = index;
    updated_(*this, PropertyType::SystemIconIndex);
}

QString folderDisplayName(const std::filesystem::path& folder) {
    const std::filesystem::path name = folder.filename();
    return platform::display(name.empty() ? folder : name);
}

}  // namespace browser

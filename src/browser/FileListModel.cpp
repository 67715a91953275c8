#include "browser/FileListModel.h"

#include "controls/GroupedListView.h"
#include "platform/Text.h"

#include <algorithm>

namespace browser {
namespace {

constexpr std::array<std::uint32_t, 81> kRightAligned{
    4,   5,   6,   7,   8,   9,   12,  67,  100, 101, 102, 107, 108, 109, 113, 114, 115, 200, 203, 208, 212,
    216, 217, 218, 219, 220, 223, 225, 226, 227, 234, 235, 236, 237, 239, 241, 244, 250, 255, 260, 273, 275,
    276, 280, 281, 288, 294, 299, 305, 306, 312, 314, 323, 324, 326, 327, 329, 331, 428, 445, 600, 603, 604,
    605, 606, 607, 608, 616, 700, 701, 704, 705, 706, 711, 715, 716, 718, 719, 722, 724, 800};
static_assert(std::ranges::is_sorted(kRightAligned));

constexpr int kRightAlignment = Qt::AlignRight | Qt::AlignVCenter;
constexpr int kLeftAlignment = Qt::AlignLeft | Qt::AlignVCenter;

}  // namespace

bool isRightAligned(std::uint32_t columnType) {
    return std::ranges::binary_search(kRightAligned, columnType);
}

FileListModel::FileListModel(const tags::PropertyCatalogue& catalogue, FileIcons& icons,
                             CellWanted cellWanted, QObject* parent)
    : QAbstractTableModel(parent), catalogue_(catalogue), icons_(icons), cellWanted_(std::move(cellWanted)) {
    resetColumns();
}

void FileListModel::setNameSettings(const NameSettings& settings) {
    nameSettings_ = settings;
}

void FileListModel::clear(const std::filesystem::path& folder) {
    beginResetModel();
    list_.reset(folder);
    cells_.clear();
    endResetModel();
}

void FileListModel::take(LoadedFolder loaded, bool hideSystemFiles) {
    beginResetModel();
    cells_.clear();
    list_.take(std::move(loaded));
    list_.InsertPendingItems(hideSystemFiles);
    endResetModel();
}

void FileListModel::lose(FolderState state) {
    LoadedFolder nothing;
    nothing.listing.folder = list_.folder();
    nothing.listing.state = state;
    take(std::move(nothing), true);
}

void FileListModel::setOrder(std::vector<std::int32_t> order) {
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::int32_t> ids;
    ids.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before) ids.push_back(list_.itemIdAt(index.row()));
    list_.setOrder(std::move(order));
    QModelIndexList after;
    after.reserve(before.size());
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(list_.rowOf(ids[static_cast<std::size_t>(i)]), before[i].column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

std::int32_t FileListModel::addItem(std::string_view name, std::uint32_t position) {
    return list_.addItem(name, position);
}

void FileListModel::InsertPendingItems(bool hideSystemFiles) {
    list_.InsertPendingItems(
        hideSystemFiles, [this](int row) { beginInsertRows({}, row, row); }, [this] { endInsertRows(); });
}

void FileListModel::RemoveItem(std::int32_t itemId) {
    const int row = list_.rowOf(itemId);
    if (row < 0) {
        list_.RemoveItem(itemId);
        return;
    }
    beginRemoveRows({}, row, row);
    list_.RemoveItem(itemId);
    endRemoveRows();
}

void FileListModel::resetColumns() {
    beginResetModel();
    columns_.clear();
    for (const tags::PropertyRecord* record : catalogue_.visibleRecords())
        columns_.push_back(record->columnType);
    endResetModel();
}

int FileListModel::sectionOf(std::uint32_t columnType) const {
    const auto found = std::ranges::find(columns_, columnType);
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

void FileListModel::setCellText(std::int32_t itemId, std::uint32_t columnType, const QString& text,
                                bool borrowed) {
    const int row = list_.rowOf(itemId);
    const int section = sectionOf(columnType);
    if (row < 0 || section < 1) return;
    cells_.set(itemId, columnType, {text, borrowed});
    Q_EMIT dataChanged(index(row, section), index(row, section), {Qt::DisplayRole});
}

std::optional<QString> FileListModel::knownCellText(std::int32_t itemId, std::uint32_t columnType) const {
    const CellTexts::Cell* cell = cells_.find(itemId, columnType);
    return cell == nullptr || cell->borrowed ? std::nullopt : std::optional(cell->text);
}

void FileListModel::forgetCellTexts() {
    cells_.clear();
}

int FileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : list_.rowCount();
}

int FileListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString FileListModel::nameOf(const ListItem& item) const {
    return platform::wide(displayText(list_.items().name(item), item.isFolder(), nameSettings_));
}

QVariant FileListModel::nameData(const ListItem& item, std::int32_t itemId, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return QString(kLeadingBlanks, u' ') + nameOf(item);
        case Qt::DecorationRole:
            return icons_.of(list_.items().name(item), item.kind, (item.attributes & attribute::kLink) != 0);
        case controls::GroupedListView::GhostRole:
            return item.isHidden();
        case NameRole:
            return nameOf(item);
        case ItemIdRole:
            return itemId;
        default:
            return {};
    }
}

QString FileListModel::cellText(const ListItem& item, std::int32_t itemId, std::uint32_t columnType) const {
    // Folders get no other column text.
    if (item.isFolder() && !(folderSizes_ && columnType == kSizeColumn)) return {};
    const CellTexts::Cell* cell = cells_.find(itemId, columnType);
    QString text = cell == nullptr ? QString() : cell->text;
    if (cell == nullptr || cell->borrowed) cellWanted_(itemId, columnType);
    return text;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const std::uint32_t columnType = columns_[static_cast<std::size_t>(index.column())];
    if (role == Qt::TextAlignmentRole) return isRightAligned(columnType) ? kRightAlignment : kLeftAlignment;
    const std::int32_t itemId = list_.itemIdAt(index.row());
    const ListItem& item = list_.items().item(itemId);
    if (index.column() == 0 || role == ItemIdRole || role == NameRole) return nameData(item, itemId, role);
    return role == Qt::DisplayRole ? cellText(item, itemId, columnType) : QVariant();
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const std::uint32_t columnType = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole) return isRightAligned(columnType) ? kRightAlignment : kLeftAlignment;
    const tags::PropertyRecord* record = catalogue_.findColumn(columnType);
    if (record == nullptr) return {};
    if (role == Qt::ToolTipRole) return tags::plainName(*record);
    if (role != Qt::DisplayRole) return {};
    return QString(reinterpret_cast<const QChar*>(record->name.data()),
                   static_cast<qsizetype>(record->name.size()));
}

}  // namespace browser

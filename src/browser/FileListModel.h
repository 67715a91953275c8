#pragma once

#include "browser/CellTexts.h"
#include "browser/FileIcons.h"
#include "browser/ItemList.h"
#include "tags/PropertyCatalogue.h"

#include <QAbstractTableModel>
#include <functional>
#include <optional>

namespace browser {

/// The items of a folder as rows and the visible properties as columns, for a GroupedListView. It asks for
/// the texts of the cells that are painted and has no thread of its own. GUI thread.
class FileListModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Role {
        /// int32, the item's id.
        ItemIdRole = Qt::UserRole + 200,
        /// QString, the name alone, as shown but without the leading blanks.
        NameRole,
    };

    /// Asks for the text of a cell, which is handed in later by setCellText().
    using CellWanted = std::function<void(std::int32_t itemId, std::uint32_t columnType)>;

    FileListModel(const tags::PropertyCatalogue& catalogue, FileIcons& icons, CellWanted cellWanted,
                  QObject* parent = nullptr);

    const ItemList& list() const { return list_; }

    void setNameSettings(const NameSettings& settings);
    /// Whether folders have a size, too.
    void setFolderSizes(bool shown) { folderSizes_ = shown; }

    /// An empty list for the folder.
    void clear(const std::filesystem::path& folder);
    /// The loaded folder; hideSystemFiles as the settings say.
    void take(LoadedFolder loaded, bool hideSystemFiles);
    /// Marks the folder unreadable; without rows.
    void lose(FolderState state);
    void setOrder(std::vector<std::int32_t> order);
    /// Gives the new item's id, -1 when there is no such entry. It waits until InsertPendingItems().
    std::int32_t addItem(std::string_view name, std::uint32_t position);
    void InsertPendingItems(bool hideSystemFiles);
    void RemoveItem(std::int32_t itemId);
    bool setSelected(int row, bool selected) { return list_.setSelected(row, selected); }

    /// Reads the visible columns of the catalogue anew.
    void resetColumns();
    /// In the order of the sections.
    const std::vector<std::uint32_t>& columns() const { return columns_; }
    /// -1 when the column is not shown.
    int sectionOf(std::uint32_t columnType) const;

    void setCellText(std::int32_t itemId, std::uint32_t columnType, const QString& text,
                     bool borrowed = false);
    /// Nothing before the cell has been handed in.
    std::optional<QString> knownCellText(std::int32_t itemId, std::uint32_t columnType) const;
    /// All cells are asked for again.
    void forgetCellTexts();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
    QString nameOf(const ListItem& item) const;
    QVariant nameData(const ListItem& item, std::int32_t itemId, int role) const;
    QString cellText(const ListItem& item, std::int32_t itemId, std::uint32_t columnType) const;

    const tags::PropertyCatalogue& catalogue_;
    FileIcons& icons_;
    CellWanted cellWanted_;
    NameSettings nameSettings_;
    bool folderSizes_ = false;
    ItemList list_;
    std::vector<std::uint32_t> columns_;
    mutable CellTexts cells_;
};

/// The column of the sizes.
inline constexpr std::uint32_t kSizeColumn = 9;

/// Columns whose header and cells stand at the right.
bool isRightAligned(std::uint32_t columnType);

}  // namespace browser

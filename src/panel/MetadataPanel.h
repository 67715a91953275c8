#pragma once

#include "app/AppContext.h"
#include "exiftool/MetadataLoad.h"
#include "panel/MetadataListModel.h"
#include "panel/MetadataListView.h"
#include "platform/FileStamp.h"
#include "tags/LabelLibrary.h"

#include <QWidget>
#include <filesystem>
#include <functional>

class QKeyEvent;
class QLabel;
class QMenu;

namespace panel {

/// The right-hand pane that shows the tags of the current file, in the groups of the catalogue. It owns the
/// list, its painting and its menus; the reading is MetadataLoad's. GUI thread.
class MetadataPanel : public QWidget, public exiftool::LoadTarget {
    Q_OBJECT

 public:
    /// What the panel needs of others; all outlive it.
    struct Parts {
        const app::AppContext& context;
        const tags::TagDictionary& dictionary;
        const tags::RatingMemory& memory;
        tags::OutputParser& parser;
        exiftool::MetadataLoad& load;
        exiftool::LoadFeedback& feedback;
        std::function<QString(int)> text;            ///< string by number of the language file
        const tags::LabelLibrary* labels = nullptr;  ///< null: no help on tags
    };

    explicit MetadataPanel(const Parts& parts, QWidget* parent = nullptr);

    /// Command 40108: clears the list and reads the file; an empty path only clears it.
    void newSelection(const std::filesystem::path& file);
    /// Command 8056: reads the shown file again; row and scroll position stay.
    void Refresh();
    /// Command 8003.
    void clear();

    /// Copies the current cell, or the whole selected row where no cell is current.
    void Copy() const;
    /// Command 40011: opens the value of the current row when it is the address of a web page.
    void openAddress() const;

    const std::filesystem::path& file() const { return file_; }
    /// Whether the file is still the one whose tags are shown, and nobody has written it since.
    bool isFileUnchanged() const;
    /// The value that was written is shown in its row, and the file counts as unchanged again.
    void showWrittenValue(int row, const QString& value);
    /// The rows of the group of the current row, or none without one.
    std::vector<tags::MetadataRow> rowsOfCurrentGroup() const;

    MetadataListView& list() { return *list_; }
    const MetadataListModel& model() const { return *model_; }
    /// Width of the value column in pixels, for the settings.
    int valueColumnWidth() const;

    // --- exiftool::LoadTarget
    void InsertMetadataRow(tags::MetadataRow&& row) override;
    void SetGroupCount(std::uint32_t groupId, int count) override;

 Q_SIGNALS:
    /// A click on a value or on the icon of its kind, or Enter on a row.
    void ValueChosen(int row, bool altHeld);
    /// A command was chosen in a menu or by a key; it is about the current row.
    void CommandChosen(int commandId);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void createColumns();
    void connectList();
    /// The command of a key that the panel takes; 0 for none.
    static int commandOfKey(const QKeyEvent& key);
    void addRemovalEntries(QMenu& menu, const tags::MetadataRow& row) const;
    bool canDelete(const tags::MetadataRow& row) const;
    void makeCurrent(int groupId);
    void CreatePanelGroups();
    void showRowMenu(const QModelIndex& index, const QPoint& position);
    void showGroupMenu(int groupId, const QPoint& position);
    void collapseAll(bool collapsed);
    static void openAddress(const QString& value);
    /// The help of a tag whose name was clicked, in a pop-up beside it.
    void showHelp(const QModelIndex& index);
    void load(const std::filesystem::path& file);

    Parts parts_;
    std::filesystem::path file_;
    platform::FileStamp stamp_;
    QLabel* title_;
    MetadataListModel* model_;
    MetadataListView* list_;
    std::vector<std::pair<std::uint32_t, int>> counts_;
    std::size_t rowsOfFile_ = 0;
};

}  // namespace panel

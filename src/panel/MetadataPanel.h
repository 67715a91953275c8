#pragma once

#include "app/AppContext.h"
#include "controls/CommandAction.h"
#include "exiftool/MetadataLoad.h"
#include "panel/MetadataListModel.h"
#include "panel/MetadataListView.h"
#include "platform/FileStamp.h"
#include "tags/LabelLibrary.h"

#include <QWidget>
#include <filesystem>
#include <functional>
#include <optional>

class QKeyEvent;
class QLabel;
class QMenu;

namespace panel {

/// The right-hand pane that shows the tags of the current file, in the groups of the catalogue. It owns the
/// list, its painting and its menus; the reading is MetadataReader's, on a thread of its own. GUI thread.
class MetadataPanel : public QWidget, public exiftool::LoadTarget {
    Q_OBJECT

 public:
    /// What the panel needs of others; all outlive it.
    struct Parts {
        const app::AppContext& context;
        const tags::TagDictionary& dictionary;
        const tags::RatingMemory& memory;
        tags::OutputParser& parser;
        exiftool::MetadataReader& reader;
        exiftool::MetadataLoad& load;
        exiftool::LoadFeedback& feedback;
        std::function<QString(int)> text;            ///< string by number of the language file
        const tags::LabelLibrary* labels = nullptr;  ///< null: no help on tags
    };

    explicit MetadataPanel(const Parts& parts, QWidget* parent = nullptr);

    /// Where the entries of the menus come from; outlives the panel's use. Without them the menus hold only
    /// what the panel does itself.
    void setCommands(controls::CommandActions& commands) { commands_ = &commands; }

    /// Command 40108: clears the list and has the file read; an empty path only clears it. The rows come when
    /// ReadingEnded is told; a file that is chosen before then takes the place of this one.
    void newSelection(const std::filesystem::path& file);
    /// Command 8056: has the shown file read again; the rows stay until the new ones are there, row and
    /// scroll position remain.
    void Refresh();
    /// The same without a word in the status bar, where something stands that is to be read.
    void readAgainQuietly();
    /// Command 8003.
    void clear();

    /// Copies the current cell, or the whole selected row where no cell is current.
    void Copy() const;
    /// What a row's value is with the characters that its cell cannot show; without, the cell's text is
    /// copied.
    void setWholeValue(std::function<QString(const tags::MetadataRow&)> wholeValue) {
        wholeValue_ = std::move(wholeValue);
    }
    /// Command 40011: opens the value of the current row when it is the address of a web page.
    void openAddress() const;

    const std::filesystem::path& file() const { return file_; }
    /// From a request to its ReadingEnded.
    bool isReading() const { return parts_.reader.isReading(); }
    /// Why the shown rows are not all, for people; empty when they are.
    const QString& fault() const { return fault_; }
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
    /// A command was chosen by a key; it is about the current row.
    void CommandChosen(int commandId);
    /// The rows of the file that was asked for last stand in the list, or the reason why they do not.
    void ReadingEnded();
    /// Another row is the current one, or other tags are shown.
    void CurrentRowChanged();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void createColumns();
    void connectList();
    /// The command of a key that the panel takes; 0 for none.
    static int commandOfKey(const QKeyEvent& key);
    /// A command of the window, if it has it.
    void addCommand(QMenu& menu, int id, const QString& text) const;
    void addRemovalEntries(QMenu& menu, const tags::MetadataRow& row) const;
    void makeCurrent(int groupId);
    void CreatePanelGroups();
    void showRowMenu(const QModelIndex& index, const QPoint& position);
    void showGroupMenu(int groupId, const QPoint& position);
    void collapseAll(bool collapsed);
    static void openAddress(const QString& value);
    /// The help of a tag whose name was clicked, in a pop-up beside it.
    void showHelp(const QModelIndex& index);
    /// Where the user is in the list, told by what stands there.
    struct Place {
        bool hasRow = false;
        tags::MetadataRow row;
        int column = 0;
        int scrolled = 0;
    };
    Place place() const;
    void goTo(const Place& place);
    void beginReading(const std::filesystem::path& file, const std::optional<Place>& place, bool isQuiet);
    void showRead(const exiftool::MetadataRead& read, const std::optional<Place>& place, bool isQuiet);
    void showTitle();

    Parts parts_;
    controls::CommandActions* commands_ = nullptr;
    std::function<QString(const tags::MetadataRow&)> wholeValue_;
    std::filesystem::path file_;
    platform::FileStamp stamp_;
    QString fault_;
    QLabel* title_;
    MetadataListModel* model_;
    MetadataListView* list_;
    std::vector<std::pair<std::uint32_t, int>> counts_;
    std::size_t rowsOfFile_ = 0;
};

}  // namespace panel

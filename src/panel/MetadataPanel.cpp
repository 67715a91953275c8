#include "panel/MetadataPanel.h"

#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "app/TextNumbers.h"
#include "controls/Icons.h"
#include "panel/MetadataDelegate.h"
#include "panel/PanelTexts.h"
#include "platform/Text.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QToolTip>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace panel {

namespace {

constexpr int kTitleHeight = 34;
constexpr int kTagWidth = 250;
constexpr int kIdWidth = 50;
constexpr int kKindWidth = 22;
constexpr int kLeastValueWidth = 200;
/// Far more than any file has; what a damaged one makes ExifTool print beyond it would only stop the window.
constexpr std::size_t kMostRows = 100'000;
constexpr qsizetype kLongestGroupTitle = 80;
constexpr int kHelpMilliseconds = 30000;
constexpr int kOpenAddress = 40011;
constexpr int kOpenAddressText = 40012;
constexpr int kCopy = 40063;
/// Entries of our own in the menu of a group header.
constexpr int kCollapseAll = 40201;
constexpr int kExpandAll = 40202;

QString groupIconName(tags::GroupImage image) {
    switch (image) {
        case tags::GroupImage::Exif:
            return QStringLiteral("group-exif");
        case tags::GroupImage::Iptc:
            return QStringLiteral("group-iptc");
        case tags::GroupImage::File:
            return QStringLiteral("group-file");
        case tags::GroupImage::Maker:
            return QStringLiteral("group-maker");
        case tags::GroupImage::Composite:
            return QStringLiteral("group-composite");
        case tags::GroupImage::Media:
            return QStringLiteral("group-media");
        case tags::GroupImage::Icc:
            return QStringLiteral("group-icc");
        case tags::GroupImage::Gps:
            return QStringLiteral("group-gps");
        case tags::GroupImage::Other:
            break;
    }
    return QStringLiteral("group-other");
}

controls::GroupedListView::Group panelGroup(int id, const QString& name, tags::GroupImage image) {
    return {id, QStringLiteral(" ") + name.left(kLongestGroupTitle), controls::icon(groupIconName(image)),
            true};
}

void addEntry(QMenu& menu, int id, const QString& text, const QString& iconName) {
    menu.addAction(controls::icon(iconName), text)->setData(id);
}

/// Names come out of files; an ampersand would become a key of the menu.
QString menuText(const QString& name) {
    return name.left(kLongestGroupTitle).replace(u'&', QStringLiteral("&&"));
}

struct GroupMenuEntry {
    int textNumber;
    int command;
};

constexpr std::array<GroupMenuEntry, 5> kGroupMenu = {{
    {1829, app::command::kAddTagsToFile},
    {1830, app::command::kRemoveTagsFromFile},
    {1831, app::command::kRemoveGroupFromFile},
    {167, app::command::kRemoveTags},
    {168, app::command::kRemoveGroupTypes},
}};

/// The command that removes the family that the group belongs to; 0 for none.
int familyRemoval(std::uint32_t groupId) {
    switch (tags::groupGateOf(groupId)) {
        case tags::GroupGate::Exif:
            return app::command::kRemoveExif;
        case tags::GroupGate::Iptc:
            return app::command::kRemoveIptc;
        case tags::GroupGate::Xmp:
            return app::command::kRemoveXmp;
        case tags::GroupGate::Icc:
            return app::command::kRemoveIccProfile;
        case tags::GroupGate::Gps:
            return app::command::kRemoveGps;
        case tags::GroupGate::None:
        case tags::GroupGate::MakerNotes:
        case tags::GroupGate::Composite:
            break;
    }
    return 0;
}

int chosenIn(QMenu& menu, const QPoint& position) {
    const QAction* chosen = menu.exec(position);
    return chosen == nullptr ? 0 : chosen->data().toInt();
}

}  // namespace

MetadataPanel::MetadataPanel(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      title_(new QLabel(this)),
      model_(new MetadataListModel(parts.context.settings, this)),
      list_(new MetadataListView(parts.context.settings, this)) {
    setObjectName(QStringLiteral("RIGHT_HOLDER"));
    list_->setObjectName(QStringLiteral("metadataList"));
    title_->setObjectName(QStringLiteral("metadataTitle"));
    title_->setTextFormat(Qt::PlainText);
    title_->setFixedHeight(kTitleHeight);
    title_->setContentsMargins(6, 0, 8, 0);
    // A long name is cut at the edge and never widens the panel.
    title_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(title_);
    layout->addWidget(list_, 1);

    model_->setValueTitle(parts_.text(app::text::kValueColumn));
    list_->setModel(model_);
    list_->setItemDelegate(new MetadataDelegate(*model_, parts_.dictionary, parts_.memory,
                                                parts_.context.settings, parts_.labels, this));
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setGridLines(true);
    list_->setGroupsEnabled(true);
    createColumns();
    CreatePanelGroups();
    clear();

    connectList();
}

void MetadataPanel::connectList() {
    using controls::GroupedListView;
    connect(list_, &GroupedListView::CellClicked, this,
            [this](const QModelIndex& index, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
                if (button != Qt::LeftButton) return;
                const auto column = static_cast<tags::PanelColumn>(index.column());
                if (column == tags::PanelColumn::Value || column == tags::PanelColumn::Kind)
                    Q_EMIT ValueChosen(index.row(), modifiers.testFlag(Qt::AltModifier));
                else
                    showHelp(index);
            });
    connect(list_, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { Q_EMIT ValueChosen(index.row(), false); });
    connect(list_, &GroupedListView::CellMenuRequested, this, &MetadataPanel::showRowMenu);
    connect(list_, &GroupedListView::GroupHeaderMenuRequested, this, &MetadataPanel::showGroupMenu);
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MetadataPanel::CurrentRowChanged);
    list_->installEventFilter(this);
    auto* copy = new QShortcut(QKeySequence::Copy, list_);
    copy->setContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QShortcut::activated, this, &MetadataPanel::Copy);
}

int MetadataPanel::commandOfKey(const QKeyEvent& key) {
    if (key.modifiers() != Qt::NoModifier && key.modifiers() != Qt::KeypadModifier) return 0;
    if (key.key() == Qt::Key_Delete) return app::command::kDeleteTag;
    return key.key() == Qt::Key_F5 ? app::command::kRefreshPanel : 0;
}

bool MetadataPanel::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    const int command = watched == list_ && isKey ? commandOfKey(static_cast<QKeyEvent&>(*event)) : 0;
    if (command == 0) return QWidget::eventFilter(watched, event);
    // Taken from the window's shortcuts, of which F5 reads the folder again.
    event->accept();
    if (event->type() == QEvent::KeyPress) Q_EMIT CommandChosen(command);
    return true;
}

void MetadataPanel::createColumns() {
    QHeaderView* header = list_->header();
    header->setMinimumSectionSize(1);
    header->setSectionsMovable(false);
    header->setStretchLastSection(true);
    const int stored = parts_.context.settings.metadataValueColumnWidth;
    const int widths[tags::kPanelColumnCount] = {1, kTagWidth, kIdWidth, kKindWidth,
                                                 stored < 1 ? kLeastValueWidth : stored};
    for (int column = 0; column < tags::kPanelColumnCount; ++column)
        header->resizeSection(column, widths[column]);
    for (const tags::PanelColumn fixed :
         {tags::PanelColumn::Item, tags::PanelColumn::Id, tags::PanelColumn::Kind})
        header->setSectionResizeMode(static_cast<int>(fixed), QHeaderView::Fixed);
}

void MetadataPanel::CreatePanelGroups() {
    std::vector<controls::GroupedListView::Group> groups;
    groups.reserve(tags::kGroupCount);
    for (std::uint32_t position = 0; position < tags::kGroupCount; ++position)
        groups.push_back(panelGroup(static_cast<int>(position), tags::groupName(position),
                                    tags::GroupIconClass(position)));
    // Below the catalogue's: what the file holds beyond it.
    const QStringList& extra = parts_.parser.extraGroups();
    for (int at = 0; at < extra.size(); ++at)
        groups.push_back(panelGroup(tags::kGroupCount + at, extra[at], tags::GroupImage::Other));
    list_->setGroups(std::move(groups));
}

void MetadataPanel::clear() {
    parts_.reader.cancel();
    parts_.feedback.hideProgress();
    fault_.clear();
    file_.clear();
    model_->clear();
    title_->setText(parts_.text(app::text::kMetadataTitle));
    title_->setToolTip({});
    list_->setEmptyText(parts_.text(app::text::kClickAFile));
    Q_EMIT CurrentRowChanged();
}

void MetadataPanel::newSelection(const std::filesystem::path& file) {
    clear();
    if (!file.empty()) beginReading(file, std::nullopt, false);
}

void MetadataPanel::Refresh() {
    if (!file_.empty()) beginReading(std::filesystem::path(file_), place(), false);
}

void MetadataPanel::readAgainQuietly() {
    if (!file_.empty()) beginReading(std::filesystem::path(file_), place(), true);
}

void MetadataPanel::beginReading(const std::filesystem::path& file, const std::optional<Place>& place,
                                 bool isQuiet) {
    file_ = file;
    stamp_ = platform::stampOf(file);
    fault_.clear();
    showTitle();
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        // A pipe or a device could keep whoever opens it waiting for ever.
        showRead({file, {}, false, false, parts_.text(app::text::kNoRegularFile)}, place, isQuiet);
        return;
    }
    if (!place) list_->setEmptyText(parts_.text(text::kReading));
    if (!isQuiet) parts_.feedback.showReading(file);
    parts_.reader.request(
        file, [this, place, isQuiet](const exiftool::MetadataRead& read) { showRead(read, place, isQuiet); });
}

void MetadataPanel::showRead(const exiftool::MetadataRead& read, const std::optional<Place>& place,
                             bool isQuiet) {
    counts_.clear();
    rowsOfFile_ = 0;
    model_->clear();
    fault_ = read.wasStopped ? parts_.text(app::text::kReadingStopped) : read.fault;
    exiftool::LoadFeedback silent;
    const bool loaded = parts_.load.showRead(read, *this, isQuiet ? silent : parts_.feedback) != 0;
    CreatePanelGroups();
    model_->Commit();
    showTitle();
    for (const auto& [groupId, count] : counts_) {
        const int id = static_cast<int>(groupId);
        list_->setGroupTitle(id, tags::groupTitleWithCount(list_->groupTitle(id), count));
    }
    QString empty = parts_.text(app::text::kNoTags);
    if (!loaded || !fault_.isEmpty()) empty = parts_.text(text::kFileNotRead);
    if (!fault_.isEmpty()) empty += QStringLiteral("\n") + fault_;
    list_->setEmptyText(empty);
    if (place) goTo(*place);
    Q_EMIT CurrentRowChanged();
    Q_EMIT ReadingEnded();
}

void MetadataPanel::showTitle() {
    QString title = platform::display(file_.filename());
    QString tip = platform::display(file_);
    if (rowsOfFile_ > kMostRows)
        title = app::formatText(
            parts_.text(text::kRowsShown),
            {title, QLocale().toString(qulonglong{kMostRows}), QLocale().toString(qulonglong{rowsOfFile_})});
    if (!fault_.isEmpty() && model_->rowCount() > 0) {
        title += QStringLiteral(" - ") + parts_.text(app::text::kNotAllRead);
        tip += u'\n' + fault_;
    }
    title_->setText(title);
    title_->setToolTip(tip);
}

MetadataPanel::Place MetadataPanel::place() const {
    Place place;
    const QModelIndex current = list_->currentIndex();
    place.hasRow = current.isValid();
    if (place.hasRow) {
        place.row = model_->row(current.row());
        place.column = current.column();
    }
    place.scrolled = list_->verticalScrollBar()->value();
    return place;
}

void MetadataPanel::goTo(const Place& place) {
    for (int position = 0; place.hasRow && position < model_->rowCount(); ++position) {
        const tags::MetadataRow& row = model_->row(position);
        if (row.groupId != place.row.groupId || row.tag != place.row.tag ||
            row.itemIndex != place.row.itemIndex)
            continue;
        list_->setCurrentIndex(model_->index(position, place.column));
        break;
    }
    list_->verticalScrollBar()->setValue(place.scrolled);
}

void MetadataPanel::InsertMetadataRow(tags::MetadataRow&& row) {
    if (++rowsOfFile_ <= kMostRows) model_->InsertMetadataRow(std::move(row));
}

void MetadataPanel::SetGroupCount(std::uint32_t groupId, int count) {
    counts_.emplace_back(groupId, count);
}

int MetadataPanel::valueColumnWidth() const {
    return list_->header()->sectionSize(static_cast<int>(tags::PanelColumn::Value));
}

void MetadataPanel::Copy() const {
    const QModelIndex current = list_->currentIndex();
    if (!current.isValid()) return;
    const tags::MetadataRow& row = model_->row(current.row());
    const auto column = static_cast<tags::PanelColumn>(current.column());
    QString text;
    if (column == tags::PanelColumn::Tag)
        text = row.tag;
    else if (column == tags::PanelColumn::Id)
        text = row.id;
    else if (row.stars)
        text = QString::number(*row.stars);
    else
        text = wholeValue_ ? wholeValue_(row) : row.value;
    QGuiApplication::clipboard()->setText(text);
}

void MetadataPanel::addCommand(QMenu& menu, int id, const QString& text) const {
    controls::CommandAction* command = commands_ != nullptr ? commands_->action(id) : nullptr;
    if (command != nullptr) menu.addAction(command->makeEntry(text, &menu));
}

void MetadataPanel::addRemovalEntries(QMenu& menu, const tags::MetadataRow& row) const {
    addCommand(menu, app::command::kDeleteGroup,
               app::formatText(parts_.text(app::text::kGroupDelete), {menuText(row.group)}));
    menu.addSeparator();
    addCommand(menu, app::command::kDeleteTag, parts_.text(app::text::kTagDelete));
}

void MetadataPanel::showRowMenu(const QModelIndex& index, const QPoint& position) {
    if (!index.isValid()) return;
    list_->setCurrentIndex(index);
    if (commands_ != nullptr) commands_->refresh();
    const tags::MetadataRow row = model_->row(index.row());
    QMenu menu(this);
    addEntry(menu, kCopy, parts_.text(app::text::kCopyCell), QStringLiteral("edit-copy"));
    const bool onValue = index.column() == static_cast<int>(tags::PanelColumn::Value);
    if (onValue) {
        menu.addSeparator();
        addRemovalEntries(menu, row);
    }
    if (onValue && tags::looksLikeAddress(row.value)) {
        menu.addSeparator();
        addEntry(menu, kOpenAddress, parts_.text(kOpenAddressText), QStringLiteral("internet-services"));
    }
    const int chosen = chosenIn(menu, position);
    if (chosen == kCopy)
        Copy();
    else if (chosen == kOpenAddress)
        openAddress(row.value);
}

void MetadataPanel::showGroupMenu(int groupId, const QPoint& position) {
    makeCurrent(groupId);
    if (commands_ != nullptr) commands_->refresh();
    QMenu menu(this);
    for (const GroupMenuEntry& entry : kGroupMenu)
        addCommand(menu, entry.command, parts_.text(entry.textNumber));
    menu.addSeparator();
    const int family = groupId < static_cast<int>(tags::kGroupCount)
                           ? familyRemoval(static_cast<std::uint32_t>(groupId))
                           : 0;
    QMenu families(parts_.text(app::text::kRemoveFamily), &menu);
    for (const int removal : {family, app::command::kRemoveAllMetadata})
        if (removal != 0) addCommand(families, removal, parts_.text(removal));
    if (!families.isEmpty()) menu.addMenu(&families);
    menu.addSeparator();
    addEntry(menu, kCollapseAll, parts_.text(app::text::kCollapseAll), QStringLiteral("view-list-tree"));
    addEntry(menu, kExpandAll, parts_.text(app::text::kExpandAll), QStringLiteral("view-list-details"));
    const int chosen = chosenIn(menu, position);
    if (chosen == kCollapseAll || chosen == kExpandAll) collapseAll(chosen == kCollapseAll);
}

/// The commands about a group take it from the current row.
void MetadataPanel::makeCurrent(int groupId) {
    const QModelIndex current = list_->currentIndex();
    if (current.isValid() && static_cast<int>(model_->row(current.row()).groupId) == groupId) return;
    for (int position = 0; position < model_->rowCount(); ++position) {
        if (static_cast<int>(model_->row(position).groupId) != groupId) continue;
        list_->setCurrentIndex(model_->index(position, static_cast<int>(tags::PanelColumn::Value)));
        return;
    }
}

std::vector<tags::MetadataRow> MetadataPanel::rowsOfCurrentGroup() const {
    std::vector<tags::MetadataRow> rows;
    const QModelIndex current = list_->currentIndex();
    if (!current.isValid()) return rows;
    const std::uint32_t groupId = model_->row(current.row()).groupId;
    for (int position = 0; position < model_->rowCount(); ++position)
        if (model_->row(position).groupId == groupId) rows.push_back(model_->row(position));
    return rows;
}

bool MetadataPanel::isFileUnchanged() const {
    return platform::stampOf(file_) == stamp_;
}

void MetadataPanel::showWrittenValue(int row, const QString& value) {
    stamp_ = platform::stampOf(file_);
    if (row >= 0 && row < model_->rowCount()) model_->SetValue(row, value);
}

void MetadataPanel::collapseAll(bool collapsed) {
    for (const int groupId : list_->shownGroups()) list_->setGroupCollapsed(groupId, collapsed);
}

void MetadataPanel::showHelp(const QModelIndex& index) {
    const bool wanted = parts_.labels != nullptr && parts_.context.settings.listViewMetadata.libelleHelp;
    if (!wanted || index.column() != static_cast<int>(tags::PanelColumn::Tag)) return;
    QString help;
    if (!parts_.labels->GetHelpFromLibelle(model_->row(index.row()).tagId, help)) return;
    const QRect cell = list_->visualRect(index);
    const QString text =
        QStringLiteral("<div style=\"white-space:pre-wrap\">%1</div>").arg(help.toHtmlEscaped());
    // After the click: a tool tip goes at the end of one.
    QTimer::singleShot(0, this, [this, text, cell] {
        QToolTip::showText(list_->viewport()->mapToGlobal(cell.bottomLeft()), text, list_->viewport(), cell,
                           kHelpMilliseconds);
    });
}

void MetadataPanel::openAddress() const {
    const QModelIndex current = list_->currentIndex();
    if (current.isValid()) openAddress(model_->row(current.row()).value);
}

void MetadataPanel::openAddress(const QString& value) {
    // The value comes out of a file: it may name a web page, never a program or a local file.
    const QUrl address(value.trimmed(), QUrl::StrictMode);
    const QString scheme = address.scheme();
    if (scheme == u"http" || scheme == u"https" || scheme == u"vnd.youtube")
        QDesktopServices::openUrl(address);
}

}  // namespace panel

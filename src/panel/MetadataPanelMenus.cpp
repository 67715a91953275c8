// The menus of the panel, and what else a row shows beside itself.
#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "app/TextNumbers.h"
#include "controls/Icons.h"
#include "panel/MetadataPanel.h"
#include "panel/PanelTexts.h"

#include <QDesktopServices>
#include <QMenu>
#include <QTimer>
#include <QToolTip>
#include <QUrl>
#include <array>

namespace panel {

namespace {

constexpr int kHelpMilliseconds = 30000;
constexpr qsizetype kLongestGroupTitle = 80;
constexpr int kOpenAddress = 40011;
constexpr int kOpenAddressText = 40012;
constexpr int kCopy = 40063;
/// Entries of the panel's own.
constexpr int kCollapseAll = 40201;
constexpr int kExpandAll = 40202;
constexpr int kEdit = 40203;

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

void MetadataPanel::addCommand(QMenu& menu, int id, const QString& text) const {
    controls::CommandAction* command = commands_ != nullptr ? commands_->action(id) : nullptr;
    if (command != nullptr) menu.addAction(command->makeEntry(text, &menu));
}

void MetadataPanel::addListEntries(QMenu& menu) const {
    addCommand(menu, app::command::kRefreshPanel, parts_.text(text::kReadAgain));
    menu.addSeparator();
    addEntry(menu, kCollapseAll, parts_.text(app::text::kCollapseAll), QStringLiteral("view-list-tree"));
    addEntry(menu, kExpandAll, parts_.text(app::text::kExpandAll), QStringLiteral("view-list-details"));
}

/// What is done most comes first, what takes something away last and apart.
void MetadataPanel::addRowEntries(QMenu& menu, const tags::MetadataRow& row) const {
    const auto record =
        row.tagId < 0 ? std::nullopt : parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    const bool isEdited = record && record->writable && record->valueKind != tags::ValueKind::Binary;
    addEntry(menu, kEdit, parts_.text(isEdited ? text::kEditEntry : text::kViewEntry),
             isEdited ? QStringLiteral("document-edit") : QStringLiteral("document-preview"));
    menu.setDefaultAction(menu.actions().front());
    addEntry(menu, kCopy, parts_.text(app::text::kCopyCell), QStringLiteral("edit-copy"));
    if (!addressIn(row.value).isEmpty())
        addEntry(menu, kOpenAddress, parts_.text(kOpenAddressText), QStringLiteral("internet-services"));
    menu.addSeparator();
    addListEntries(menu);
    menu.addSeparator();
    addCommand(menu, app::command::kDeleteTag, parts_.text(app::text::kTagDelete));
    addCommand(menu, app::command::kDeleteGroup,
               app::formatText(parts_.text(app::text::kGroupDelete), {menuText(row.group)}));
}

void MetadataPanel::addDesignedEntries(QMenu& menu, const QModelIndex& index) const {
    const tags::MetadataRow& row = model_->row(index.row());
    addEntry(menu, kCopy, parts_.text(app::text::kCopyCell), QStringLiteral("edit-copy"));
    if (index.column() != static_cast<int>(tags::PanelColumn::Value)) return;
    menu.addSeparator();
    addCommand(menu, app::command::kDeleteGroup,
               app::formatText(parts_.text(app::text::kGroupDelete), {menuText(row.group)}));
    menu.addSeparator();
    addCommand(menu, app::command::kDeleteTag, parts_.text(app::text::kTagDelete));
    if (!tags::looksLikeAddress(row.value)) return;
    menu.addSeparator();
    addEntry(menu, kOpenAddress, parts_.text(kOpenAddressText), QStringLiteral("internet-services"));
}

void MetadataPanel::showRowMenu(const QModelIndex& index, const QPoint& position) {
    if (index.isValid()) list_->setCurrentIndex(index);
    if (commands_ != nullptr) commands_->refresh();
    QMenu menu(this);
    if (!index.isValid())
        addListEntries(menu);
    else if (app::commandFormOf(parts_.context) == app::CommandForm::Corrected)
        addRowEntries(menu, model_->row(index.row()));
    else
        addDesignedEntries(menu, index);
    const QString value = index.isValid() ? model_->row(index.row()).value : QString();
    // What is read meanwhile takes the row away.
    const QPersistentModelIndex row = index;
    const int chosen = chosenIn(menu, position);
    if (chosen == kEdit && row.isValid()) Q_EMIT ValueChosen(row.row(), false);
    if (chosen == kCopy) Copy();
    if (chosen == kOpenAddress) QDesktopServices::openUrl(addressIn(value));
    if (chosen == kCollapseAll || chosen == kExpandAll) collapseAll(chosen == kCollapseAll);
}

void MetadataPanel::showGroupMenu(int groupId, const QPoint& position) {
    makeCurrent(groupId);
    if (commands_ != nullptr) commands_->refresh();
    QMenu menu(this);
    const QString selection = commands_ != nullptr ? commands_->selectionText() : QString();
    for (const GroupMenuEntry& entry : kGroupMenu)
        addCommand(menu, entry.command, app::formatText(parts_.text(entry.textNumber), {selection}));
    menu.addSeparator();
    const int family = groupId < static_cast<int>(tags::kGroupCount)
                           ? familyRemoval(static_cast<std::uint32_t>(groupId))
                           : 0;
    QMenu families(app::formatText(parts_.text(app::text::kRemoveFamily), {selection}), &menu);
    for (const int removal : {family, app::command::kRemoveAllMetadata})
        if (removal != 0) addCommand(families, removal, parts_.text(removal));
    if (!families.isEmpty()) menu.addMenu(&families);
    menu.addSeparator();
    addEntry(menu, kCollapseAll, parts_.text(app::text::kCollapseAll), QStringLiteral("view-list-tree"));
    addEntry(menu, kExpandAll, parts_.text(app::text::kExpandAll), QStringLiteral("view-list-details"));
    const int chosen = chosenIn(menu, position);
    if (chosen == kCollapseAll || chosen == kExpandAll) collapseAll(chosen == kCollapseAll);
}

bool MetadataPanel::showHelp(const QModelIndex& index) {
    const bool wanted = parts_.labels != nullptr && parts_.context.settings.listViewMetadata.libelleHelp;
    if (!wanted || index.column() != static_cast<int>(tags::PanelColumn::Tag)) return false;
    QString help;
    if (!parts_.labels->GetHelpFromLibelle(model_->row(index.row()).tagId, help)) return false;
    const QRect cell = list_->visualRect(index);
    const QString text =
        QStringLiteral("<div style=\"white-space:pre-wrap\">%1</div>").arg(help.toHtmlEscaped());
    // After the click: a tool tip goes at the end of one.
    QTimer::singleShot(0, this, [this, text, cell] {
        QToolTip::showText(list_->viewport()->mapToGlobal(cell.bottomLeft()), text, list_->viewport(), cell,
                           kHelpMilliseconds);
    });
    return true;
}

void MetadataPanel::openAddress() const {
    if (canOpenAddress())
        QDesktopServices::openUrl(addressIn(model_->row(list_->currentIndex().row()).value));
}

bool MetadataPanel::canOpenAddress() const {
    const QModelIndex current = list_->currentIndex();
    return current.isValid() && !addressIn(model_->row(current.row()).value).isEmpty();
}

QUrl MetadataPanel::addressIn(const QString& value) {
    // The value comes out of a file: it may name a web page, never a program or a local file.
    const QUrl address(value.trimmed(), QUrl::StrictMode);
    const QString scheme = address.scheme();
    const bool isPage = (scheme == u"http" || scheme == u"https") && !address.host().isEmpty();
    return address.isValid() && (isPage || scheme == u"vnd.youtube") ? address : QUrl();
}

}  // namespace panel

#include "browser/PlacesPanel.h"

#include "browser/BrowserTexts.h"
#include "browser/FileIcons.h"
#include "controls/ColorArithmetic.h"
#include "platform/Text.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

namespace browser {
namespace {

constexpr int kRowHeight = 26;
constexpr int kIconSide = 16;
constexpr int kIndentation = 12;
constexpr std::chrono::seconds kVolumeCheck{5};
constexpr float kSelectionShare = 0.14F;
constexpr int kPathRole = Qt::UserRole;

std::filesystem::path pathOf(const QTreeWidgetItem& item) {
    const QByteArray bytes = item.data(0, kPathRole).toByteArray();
    return {std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()))};
}

std::vector<std::filesystem::path> pathsOf(const std::vector<Place>& places) {
    std::vector<std::filesystem::path> paths;
    paths.reserve(places.size());
    for (const Place& place : places) paths.push_back(place.path);
    return paths;
}

/// The number of parts that the folder has in common with a place above it; -1 when it is not below it.
int nearness(const std::filesystem::path& folder, const std::filesystem::path& place) {
    const auto [left, right] = std::mismatch(folder.begin(), folder.end(), place.begin(), place.end());
    return right == place.end() ? static_cast<int>(std::distance(place.begin(), place.end())) : -1;
}

}  // namespace

PlacesPanel::PlacesPanel(const app::LanguageFile& language, QWidget* parent)
    : QTreeWidget(parent), language_(language) {
    setObjectName(QStringLiteral("Places"));
    setAccessibleName(language_.text(text::kPlaces));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setIndentation(kIndentation);
    setIconSize({kIconSide, kIconSide});
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setItemsExpandable(false);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const auto tell = [this](QTreeWidgetItem* item) {
        // A double click comes as clicks and as an activation.
        if (item->data(0, kPathRole).isValid() && pathOf(*item) != currentFolder_)
            PlaceActivated(pathOf(*item));
    };
    connect(this, &QTreeWidget::itemClicked, this, tell);
    connect(this, &QTreeWidget::itemActivated, this, tell);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        const QTreeWidgetItem* item = itemAt(place);
        if (item == nullptr) item = currentItem();
        if (item != nullptr && item->data(0, kPathRole).isValid())
            PlaceMenuRequested(pathOf(*item), viewport()->mapToGlobal(place));
    });
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &PlacesPanel::reloadVolumesIfChanged);
    timer->start(kVolumeCheck);
    softenSelection();
    reload();
}

/// The place on show is tinted as the selected rows of the lists are, its text unchanged.
void PlacesPanel::softenSelection() {
    QPalette soft = QApplication::palette();
    soft.setColor(
        QPalette::Highlight,
        controls::mixedColor(soft.color(QPalette::Base), soft.color(QPalette::Highlight), kSelectionShare));
    soft.setColor(QPalette::HighlightedText, soft.color(QPalette::Text));
    if (soft != palette()) setPalette(soft);
}

void PlacesPanel::changeEvent(QEvent* event) {
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        softenSelection();
}

void PlacesPanel::addSection(int titleNumber, const std::vector<Place>& places) {
    auto* section = new QTreeWidgetItem(this, {language_.text(titleNumber)});
    QFont font = this->font();
    font.setBold(true);
    section->setFont(0, font);
    section->setFlags(Qt::ItemIsEnabled);
    section->setSizeHint(0, {0, kRowHeight});
    for (const Place& place : places) {
        auto* item = new QTreeWidgetItem(
            section, {place.textNumber == 0 ? place.name : language_.text(place.textNumber)});
        item->setIcon(0, FileIcons::folder(place.iconName));
        item->setToolTip(0, platform::display(place.path));
        item->setData(0, kPathRole, QByteArray::fromStdString(place.path.native()));
        item->setSizeHint(0, {0, kRowHeight});
    }
}

void PlacesPanel::reload() {
    const std::vector<Place> volumes = mountedVolumes();
    volumes_ = pathsOf(volumes);
    clear();
    addSection(text::kPlaces, knownFolders());
    addSection(text::kDevices, volumes);
    expandAll();
    setCurrentFolder(currentFolder_);
}

void PlacesPanel::reloadVolumesIfChanged() {
    if (isVisible() && pathsOf(mountedVolumes()) != volumes_) reload();
}

void PlacesPanel::setCurrentFolder(const std::filesystem::path& folder) {
    currentFolder_ = folder;
    QTreeWidgetItem* nearest = nullptr;
    int nearestParts = 0;
    for (int section = 0; section < topLevelItemCount(); ++section) {
        for (int i = 0; i < topLevelItem(section)->childCount(); ++i) {
            QTreeWidgetItem* item = topLevelItem(section)->child(i);
            const int parts = folder.empty() ? -1 : nearness(folder, pathOf(*item));
            if (parts > nearestParts) {
                nearest = item;
                nearestParts = parts;
            }
        }
    }
    setCurrentItem(nearest);
}

}  // namespace browser

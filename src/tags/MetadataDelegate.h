#pragma once

#include "app/Settings.h"
#include "controls/GroupedListDelegate.h"
#include "tags/LabelLibrary.h"
#include "tags/MetadataListModel.h"

namespace tags {

/// Paints the cells of the panel: colours by kind of tag, the kind's icon, stars for ratings. The list has
/// painted the row's ground before.
class MetadataDelegate : public controls::GroupedListDelegate {
    Q_OBJECT

 public:
    /// All of these outlive the delegate. Without labels no tag has a help mark.
    MetadataDelegate(const MetadataListModel& model, const TagDictionary& dictionary,
                     const RatingMemory& memory, const app::Settings& settings,
                     const LabelLibrary* labels = nullptr, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
    RowAppearance appearanceOf(const MetadataRow& row) const;
    bool hasHelpMark(const MetadataRow& row) const;

    const MetadataListModel& model_;
    const TagDictionary& dictionary_;
    const RatingMemory& memory_;
    const app::Settings& settings_;
    const LabelLibrary* labels_;
};

}  // namespace tags

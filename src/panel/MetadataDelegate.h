#pragma once

#include "app/Settings.h"
#include "controls/GroupedListDelegate.h"
#include "panel/MetadataListModel.h"
#include "tags/LabelLibrary.h"

namespace panel {

/// Paints the cells of the panel: colours by kind of tag, the kind's icon, stars for ratings. The list has
/// painted the row's ground before.
class MetadataDelegate : public controls::GroupedListDelegate {
    Q_OBJECT

 public:
    /// All of these outlive the delegate. Without labels no tag has a help mark.
    MetadataDelegate(const MetadataListModel& model, const tags::TagDictionary& dictionary,
                     const tags::RatingMemory& memory, const app::Settings& settings,
                     const tags::LabelLibrary* labels = nullptr, QObject* parent = nullptr);

    /// Whether the mark of a tag with help stands also where names stand at the left, at their end.
    void setMarksNamesAtTheLeft(bool marks) { marksNamesAtTheLeft_ = marks; }

    /// A colour of the panel as it is painted: moved towards white or black where it would not read on that
    /// ground of a row.
    static QColor colourOn(const tags::PanelColour& colour, const QPalette& palette, const QColor& ground);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
    tags::RowAppearance appearanceOf(const tags::MetadataRow& row) const;
    bool hasHelpMark(const tags::MetadataRow& row) const;

    const MetadataListModel& model_;
    const tags::TagDictionary& dictionary_;
    const tags::RatingMemory& memory_;
    const app::Settings& settings_;
    const tags::LabelLibrary* labels_;
    bool marksNamesAtTheLeft_ = false;
};

}  // namespace panel

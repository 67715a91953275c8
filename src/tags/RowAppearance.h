#pragma once

#include "app/Settings.h"
#include "tags/OutputParser.h"

#include <QString>
#include <cstdint>
#include <optional>

namespace tags {

/// Columns of the metadata panel.
enum class PanelColumn { Item = 0, Tag, Id, Kind, Value };
constexpr int kPanelColumnCount = 5;

/// A colour of the panel before it meets a palette.
struct PanelColour {
    enum class Source {
        Setting,  ///< `bgr` counts
        Text,     ///< the palette's text: black, or white in dark mode
        Link,     ///< the palette's hot-light colour
    };
    Source source = Source::Setting;
    std::uint32_t bgr = 0;  ///< 0xBBGGRR

    bool operator==(const PanelColour&) const = default;
};

/// What a row looks like, apart from its texts. Decided without widgets.
struct RowAppearance {
    PanelColour tagColour;
    PanelColour idColour;
    PanelColour valueColour;
    std::optional<ValueKind> kindIcon;  ///< drawn in column Kind
    bool unknownMark = false;           ///< the row has no record: drawn in column Kind
    std::optional<int> stars;           ///< filled stars in column Value, in place of its text
};

/// record: the first with the row's id, nothing when there is none.
RowAppearance appearanceOf(const MetadataRow& row, const std::optional<TagRecord>& record,
                           const app::Settings::Colors& colours, const RatingMemory& memory);

/// Stars drawn for a rating: filled ones, then empty ones up to five in all; above five no empty ones.
struct StarCounts {
    int filled;
    int empty;
};
StarCounts starsOf(int rating);

/// The drawing that stands for a kind of value.
QString kindIconName(ValueKind kind);

/// Whether a value is offered to be opened as a web address.
bool looksLikeAddress(QStringView value);

/// The header of a group with its count: cut before the first "(" and a blank before that, then "%s (%d)".
QString groupTitleWithCount(const QString& title, int count);

}  // namespace tags

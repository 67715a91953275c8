#include "browser/ColumnSort.h"

#include <algorithm>
#include <array>

namespace browser {
namespace {

struct ColumnSort {
    std::uint32_t columnType;
    app::SortMode mode;
};

// Columns 7 and 63 are crossed on purpose. The numbers from 404 on whose mode begins with Media and that the
// catalogue does not hold stand here so that they work as soon as it does.
constexpr std::array kColumnSorts{
    ColumnSort{2, app::SortMode::Accessed},
    ColumnSort{3, app::SortMode::Attributes},
    ColumnSort{4, app::SortMode::Created},
    ColumnSort{6, app::SortMode::DateModified},
    ColumnSort{7, app::SortMode::Comments},
    ColumnSort{8, app::SortMode::RealSize},
    ColumnSort{9, app::SortMode::Size},
    ColumnSort{10, app::SortMode::Owner},
    ColumnSort{11, app::SortMode::Type},
    ColumnSort{12, app::SortMode::Rating},
    ColumnSort{30, app::SortMode::Company},
    ColumnSort{31, app::SortMode::Description},
    ColumnSort{32, app::SortMode::FileVersion},
    ColumnSort{33, app::SortMode::ProductName},
    ColumnSort{34, app::SortMode::ProductVersion},
    ColumnSort{61, app::SortMode::Authors},
    ColumnSort{63, app::SortMode::Kind},
    ColumnSort{67, app::SortMode::Extension},
    ColumnSort{71, app::SortMode::Keywords},
    ColumnSort{74, app::SortMode::Subject},
    ColumnSort{75, app::SortMode::Title},
    ColumnSort{207, app::SortMode::CameraModel},
    ColumnSort{211, app::SortMode::DateTaken},
    ColumnSort{404, app::SortMode::MediaBeatsPerMinute},
    ColumnSort{405, app::SortMode::MediaBitrate},
    ColumnSort{407, app::SortMode::MediaChannel},
    ColumnSort{412, app::SortMode::MediaComposer},
    ColumnSort{413, app::SortMode::MediaConductor},
    ColumnSort{421, app::SortMode::MediaDirector},
    ColumnSort{423, app::SortMode::MediaDuration},
    ColumnSort{429, app::SortMode::MediaGenre},
    ColumnSort{430, app::SortMode::MediaLanguage},
    ColumnSort{433, app::SortMode::MediaMood},
    ColumnSort{434, app::SortMode::MediaParentalRating},
    ColumnSort{435, app::SortMode::MediaParentalRatingReason},
    ColumnSort{436, app::SortMode::MediaPeriod},
    ColumnSort{437, app::SortMode::MediaProducer},
    ColumnSort{439, app::SortMode::MediaProtected},
    ColumnSort{443, app::SortMode::MediaPublisher},
    ColumnSort{444, app::SortMode::MediaRating},
    ColumnSort{447, app::SortMode::MediaStationName},
    ColumnSort{457, app::SortMode::MediaWriter},
    ColumnSort{458, app::SortMode::MediaYear},
};
static_assert(std::ranges::is_sorted(kColumnSorts, {}, &ColumnSort::columnType));

}  // namespace

app::SortMode ColumnToSortMode(std::uint32_t columnType) {
    const auto found = std::ranges::lower_bound(kColumnSorts, columnType, {}, &ColumnSort::columnType);
    return found != kColumnSorts.end() && found->columnType == columnType ? found->mode : app::SortMode::Name;
}

}  // namespace browser

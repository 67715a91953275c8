#include "tags/OutputParser.h"

#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "tags/ExactOutput.h"

#include <string>

namespace tags {

namespace {

constexpr qsizetype kShortestBinaryLine = 8;
constexpr QStringView kBinaryHint = u", use -b";
/// Column 2 is a field of ten wide characters with a zero at its end.
constexpr qsizetype kLongestId = 9;

QStringView takeToken(QStringView& rest) {
    const qsizetype blank = rest.indexOf(u' ');
    const QStringView token = blank < 0 ? rest : rest.first(blank);
    rest = blank < 0 ? QStringView() : rest.sliced(blank + 1);
    return token;
}

QStringView withoutBrackets(QStringView token) {
    if (token.startsWith(u'[')) token = token.sliced(1);
    const qsizetype close = token.indexOf(u']');
    return close < 0 ? token : token.first(close);
}

bool startsWithoutCase(QStringView text, QStringView start) {
    return text.startsWith(start, Qt::CaseInsensitive);
}

struct RatingSource {
    std::uint32_t groupId;
    int tagId;
};

/// The groups whose rating is remembered, and under which tag.
const std::array<RatingSource, 6>& ratingSources() {
    static const std::array<RatingSource, 6> sources = {{
        {*FindGroup(u"[IFD0]"), 1142},
        {*FindGroup(u"[Sony]"), 6345},
        {*FindGroup(u"[XMP-Acdsee]"), 7426},
        {*FindGroup(u"[XMP-dex]"), 7874},
        {*FindGroup(u"[XMP-iptcExt]"), 8433},
        {*FindGroup(u"[XMP-xmp]"), 8849},
    }};
    return sources;
}

constexpr int kIfd0Rating = 1142;
constexpr int kIptcExtRating = 8433;
constexpr int kIptcExtRatingValue = 8434;

/// All rows of these are inserted at index 0: their counters are read and never moved.
bool counterStandsStill(std::uint32_t groupId) {
    static const std::array<std::uint32_t, 2> still = {*FindGroup(u"[XMP-camera]"),
                                                       *FindGroup(u"[XMP-camera_1_]")};
    return groupId == still[0] || groupId == still[1];
}

/// A line of output without ids; the views point into the line given.
struct ValueLine {
    QStringView group;
    QStringView tag;
    QStringView value;
};

QString valueLine(std::string_view bytes) {
    QString line = platform::wide(bytes);
    shortenBinaryHint(line);
    return line;
}

std::optional<ValueLine> splitValueLine(QStringView line) {
    if (startsWithoutCase(line, u"[ExifTool]") || !line.startsWith(u'[')) return std::nullopt;
    const qsizetype close = line.indexOf(u']');
    if (close < 0) return std::nullopt;
    const qsizetype colon = line.indexOf(u':', close);
    if (colon < 0) return std::nullopt;
    return ValueLine{line.sliced(1, close - 1), line.sliced(close + 1, colon - close - 1).trimmed(),
                     line.mid(colon + 2)};
}

}  // namespace

void shortenBinaryHint(QString& line) {
    if (line.size() < kShortestBinaryLine) return;
    const qsizetype hint = line.indexOf(kBinaryHint);
    if (hint < 0) return;
    line.truncate(hint);
    line += u')';
}

OutputLine splitOutputLine(QStringView line) {
    OutputLine parts;
    QStringView rest = line;
    parts.group = takeToken(rest);
    parts.id = takeToken(rest);
    const QStringView tagAndColon = takeToken(rest);
    parts.tag = tagAndColon.isEmpty() ? tagAndColon : tagAndColon.chopped(1);
    parts.value = rest;
    return parts;
}

int leadingInteger(QStringView text) {
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace()) ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) negative = text[at++] == u'-';
    constexpr qint64 kLimit = std::numeric_limits<int>::max();
    qint64 number = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at)
        number = std::min(number * 10 + (text[at].unicode() - u'0'), kLimit);
    return static_cast<int>(negative ? -number : number);
}

OutputParser::OutputParser(const TagDictionary& dictionary, const app::Settings& settings,
                           RatingMemory& memory, RatingLog& log)
    : dictionary_(dictionary), settings_(settings), memory_(memory), log_(log) {}

void OutputParser::begin() {
    memory_.clear();
    counts_.fill(0);
    extraGroups_.clear();
    extraCounts_.clear();
}

bool OutputParser::ParseExifToolOutput(const std::filesystem::path& outputFile,
                                       const InsertMetadataRow& insert) {
    return platform::forEachLineOfOwnFile(outputFile, [&](std::string_view line) {
        parseLine(line, insert);
        return true;
    });
}

void OutputParser::parseLine(std::string_view bytes, const InsertMetadataRow& insert) {
    QString text = platform::wide(bytes);
    shortenBinaryHint(text);
    const OutputLine line = splitOutputLine(text);
    const std::optional<Place> place = placeOf(line);
    if (!place) return;

    MetadataRow row;
    row.groupId = place->groupId;
    row.tagId = place->tagId;
    row.itemIndex = nextItemIndex(place->groupId);
    row.group = groupName(place->groupId);
    row.tag = line.tag.toString();
    row.id = (line.id.startsWith(u'-') ? line.id : line.id.mid(2)).left(kLongestId).toString();
    if (row.tagId != kUnknownTag) noteRating(place->groupId, line.tag, line.value);
    if (row.tagId != kUnknownTag && line.tag == u"Rating")
        row.stars = line.value.isEmpty() ? 1 : leadingInteger(line.value);
    else
        row.value = line.value.toString();
    insert(std::move(row));
}

std::optional<OutputParser::Place> OutputParser::placeOf(const OutputLine& line) {
    const std::optional<std::uint32_t> found = FindGroup(line.group);
    const bool showUnknown = settings_.metadataList.showUnknown;
    if (!found && showUnknown) return placeWithoutRecord(line, found);
    // A group that the catalogue lacks leaves the row in the first one.
    const std::uint32_t groupId = found.value_or(0);
    const int tagId = tagIdOf(groupId, line.tag);
    if (tagId == kUnknownTag) return showUnknown ? placeWithoutRecord(line, found) : std::nullopt;
    if (isHidden(groupId)) return std::nullopt;
    return Place{groupId, tagId};
}

/// A text in another language is that of its tag.
int OutputParser::tagIdOf(std::uint32_t groupId, QStringView tag) const {
    const int tagId = dictionary_.FindTagId(groupId, tag);
    const auto parted = tagId == kUnknownTag ? splitLanguage(tag) : std::nullopt;
    return parted ? dictionary_.FindTagId(groupId, parted->tag) : tagId;
}

/// Where ShowUnknown puts a line: in its group, or under a header of its own. Text that is no tag line has no
/// place.
std::optional<OutputParser::Place> OutputParser::placeWithoutRecord(const OutputLine& line,
                                                                    std::optional<std::uint32_t> groupId) {
    const bool isTagLine = line.group.size() > 2 && line.group.startsWith(u'[') &&
                           line.group.endsWith(u']') && !line.id.isEmpty() && !line.tag.isEmpty();
    if (!isTagLine) return std::nullopt;
    if (!groupId) return Place{extraGroup(line.group), kUnknownTag};
    if (isHidden(*groupId)) return std::nullopt;
    return Place{*groupId, kUnknownTag};
}

/// A group that has no rows of its own shows them nevertheless where nothing is to be hidden.
bool OutputParser::isHidden(std::uint32_t groupId) const {
    if (!groupHasRows(groupId)) return !settings_.metadataList.showUnknown;
    return !GroupIsShown(groupId, settings_);
}

std::uint32_t OutputParser::extraGroup(QStringView token) {
    const QStringView name = withoutBrackets(token);
    for (qsizetype at = 0; at < extraGroups_.size(); ++at)
        if (name.compare(extraGroups_[at], Qt::CaseInsensitive) == 0)
            return static_cast<std::uint32_t>(kGroupCount + at);
    extraGroups_.append(name.toString());
    extraCounts_.push_back(0);
    return static_cast<std::uint32_t>(kGroupCount + extraGroups_.size() - 1);
}

QString OutputParser::groupName(std::uint32_t groupId) const {
    if (groupId >= kGroupCount) return extraGroups_[static_cast<qsizetype>(groupId) - kGroupCount];
    static const std::vector<QString> names = [] {
        std::vector<QString> byId(kGroupCount);
        for (const GroupEntry& entry : groupTable())
            byId[entry.groupId] = withoutBrackets(QStringView(entry.key)).toString();
        return byId;
    }();
    return names[groupId];
}

int OutputParser::nextItemIndex(std::uint32_t groupId) {
    if (groupId >= kGroupCount) return extraCounts_[groupId - kGroupCount]++;
    if (counterStandsStill(groupId)) return counts_[groupId];
    return counts_[groupId]++;
}

int OutputParser::groupCount(std::uint32_t groupId) const {
    if (groupId < kGroupCount) return counts_[groupId];
    const std::size_t extra = groupId - kGroupCount;
    return extra < extraCounts_.size() ? extraCounts_[extra] : 0;
}

void OutputParser::forEachShownCount(const std::function<void(std::uint32_t, int)>& call) const {
    for (std::uint32_t groupId = 0; groupId < kGroupCount; ++groupId)
        if (counts_[groupId] > 0 && groupShowsCount(groupId)) call(groupId, counts_[groupId]);
    for (std::size_t extra = 0; extra < extraCounts_.size(); ++extra)
        call(static_cast<std::uint32_t>(kGroupCount + extra), extraCounts_[extra]);
}

void OutputParser::noteRating(std::uint32_t groupId, QStringView tag, QStringView value) {
    if (!startsWithoutCase(tag, u"Rating")) return;
    for (const RatingSource& source : ratingSources()) {
        if (source.groupId != groupId) continue;
        const int rating = leadingInteger(value);
        if (source.tagId == kIfd0Rating && tag.size() != 6) return;
        memory_.Store(source.tagId, rating);
        if (source.tagId == kIptcExtRating && startsWithoutCase(tag, u"RatingValue")) {
            // It has a slot of its own as well, and is not logged.
            memory_.Store(kIptcExtRatingValue, rating);
            return;
        }
        log_.Append(source.tagId, rating);
        return;
    }
}

QString FindTagValue(const std::filesystem::path& outputFile, QStringView group, QStringView tagName) {
    QString found;
    platform::forEachLineOfOwnFile(outputFile, [&](std::string_view bytes) {
        const QString line = valueLine(bytes);
        const std::optional<ValueLine> parts = splitValueLine(line);
        if (!parts || parts->group != group || parts->tag != tagName) return true;
        found = parts->value.toString();
        return false;
    });
    return found;
}

bool forEachTagValue(const std::filesystem::path& outputFile,
                     const std::function<void(QStringView, QStringView, QStringView)>& call) {
    return platform::forEachLineOfOwnFile(outputFile, [&](std::string_view bytes) {
        const QString line = valueLine(bytes);
        if (const std::optional<ValueLine> parts = splitValueLine(line))
            call(parts->group, parts->tag, parts->value);
        return true;
    });
}

}  // namespace tags

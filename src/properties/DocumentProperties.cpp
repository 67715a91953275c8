#include "properties/DocumentProperties.h"

#include "properties/PhotoPropertyTable.h"
#include "properties/PropertyTexts.h"
#include "properties/WindowsMediaTags.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

namespace properties {
namespace {

using Id = PropertyId;

enum class TagForm : std::uint8_t {
    Text,
    List,
    Integer,
    Number,
    Date,
    LocalDate,
    Identifier,  ///< sixteen bytes as digits of the base sixteen
};

struct TagSourceRow {
    Id property;
    TagForm form;
    std::array<const char*, 6> tags;  ///< null behind the last; without a group: of a document
};

using enum TagForm;

// The groups of the formats that are documents and nothing else.
constexpr const char* kDocumentGroups[] = {"FlashPix", "XML", "RTF", "PDF", "HTML-office", "HTML"};

constexpr auto kSources = std::to_array<TagSourceRow>({
    {Id::DiskRating, Integer, {"XMP-xmp:Rating"}},
    {Id::VersionCompany, Text, {"Company", "EXE:CompanyName"}},
    {Id::VersionDescription, Text, {"EXE:FileDescription"}},
    {Id::VersionFileVersion, Text, {"EXE:FileVersion", "EXE:FileVersionNumber"}},
    {Id::VersionProductName, Text, {"EXE:ProductName"}},
    {Id::VersionProductVersion, Text, {"EXE:ProductVersion", "EXE:ProductVersionNumber"}},

    {Id::SummaryApplicationName,
     Text,
     {"Application", "Software", "PDF:Creator", "XMP-xmp:CreatorTool", "XMP-meta:Generator",
      "IFD0:Software"}},
    {Id::SummaryAuthor,
     List,
     {"Author", "XMP-meta:Initial-creator", "XMP-dc:Creator", "HTML-dc:Creator", "IFD0:Artist"}},
    {Id::SummaryApplicationName, Text, {"HTML:Generator"}},
    {Id::SummaryCategory, List, {"Category"}},
    {Id::SummaryComment,
     Text,
     {"Comments", "XMP-dc:Description", "HTML-office:Description", "GIF:Comment", "File:Comment",
      "SVG:Desc"}},
    {Id::SummaryComment, Text, {"HTML:Description", "PNG:Comment"}},
    {Id::SummaryCopyright, Text, {"XMP-dc:Rights", "EXE:LegalCopyright", "IFD0:Copyright"}},
    {Id::SummaryItemAuthors,
     List,
     {"Author", "XMP-meta:Initial-creator", "XMP-dc:Creator", "HTML-dc:Creator", "IFD0:Artist"}},
    {Id::SummaryTrademarks, Text, {"EXE:LegalTrademarks"}},
    {Id::SummaryTitle,
     Text,
     {"Title", "XMP-dc:Title", "SVG:Title", "HTML:Title", "HTML-dc:Title", "WTV:Title"}},
    {Id::SummaryTitle, Text, {"IFD0:ImageDescription"}},

    {Id::GpsAltitude, Number, {"GPS:GPSAltitude"}},
    {Id::GpsLatitudeDecimal, Number, {"Composite:GPSLatitude"}},
    {Id::GpsLongitudeDecimal, Number, {"Composite:GPSLongitude"}},
    {Id::MusicGenre, Text, {"WTV:Genre"}},
    {Id::MediaClassPrimaryID, Identifier, {"WTV:MediaClassPrimaryID"}},
    {Id::MediaClassSecondaryID, Identifier, {"WTV:MediaClassSecondaryID"}},
    {Id::MediaMetadataContentProvider, Text, {"WTV:Provider"}},
    {Id::MediaProviderRating, Text, {"WTV:ProviderRating"}},
    {Id::MediaPublisher, Text, {"XMP-dc:Publisher", "HTML-dc:Publisher"}},
    {Id::PhotoAperture, Number, {"ExifIFD:ApertureValue"}},
    {Id::PhotoCameraManufacturer, Text, {"IFD0:Make"}},
    {Id::PhotoCameraModel, Text, {"IFD0:Model", "Red:Model"}},
    {Id::PhotoDateTaken,
     LocalDate,
     {"ExifIFD:DateTimeOriginal", "XMP-exif:DateTimeOriginal", "XMP-photoshop:DateCreated",
      "Composite:DateTimeOriginal"}},
    {Id::PhotoExifVersion, Text, {"ExifIFD:ExifVersion"}},
    {Id::PhotoExposureBias, Number, {"ExifIFD:ExposureCompensation"}},
    {Id::PhotoExposureProgram, Integer, {"ExifIFD:ExposureProgram"}},
    {Id::PhotoExposureTime, Number, {"ExifIFD:ExposureTime"}},
    {Id::PhotoFlash, Integer, {"ExifIFD:Flash"}},
    {Id::PhotoFNumber, Number, {"ExifIFD:FNumber", "Red:FNumber"}},
    {Id::PhotoFocalLength, Number, {"ExifIFD:FocalLength", "Red:FocalLength"}},
    {Id::PhotoISOSpeed, Integer, {"ExifIFD:ISO", "Red:ISO"}},
    {Id::PhotoLensModel, Text, {"ExifIFD:LensModel"}},
    {Id::PhotoLightSource, Integer, {"ExifIFD:LightSource"}},
    {Id::PhotoMaxAperture, Number, {"ExifIFD:MaxApertureValue"}},
    {Id::PhotoMeteringMode, Integer, {"ExifIFD:MeteringMode"}},
    {Id::PhotoOrientation, Integer, {"IFD0:Orientation"}},
    {Id::PhotoPhotometricInterpretation, Integer, {"IFD0:PhotometricInterpretation"}},
    {Id::PhotoProgramMode, Integer, {"ExifIFD:ExposureProgram"}},
    {Id::PhotoSerialNumber, Text, {"ExifIFD:SerialNumber", "Red:SerialNumber"}},
    {Id::PhotoShutterSpeed, Number, {"ExifIFD:ShutterSpeedValue"}},
    {Id::PhotoWhiteBalance, Integer, {"ExifIFD:WhiteBalance"}},
    {Id::ImageColorSpace, Integer, {"ExifIFD:ColorSpace"}},
    {Id::ImageCompressedBitsPerPixel, Number, {"ExifIFD:CompressedBitsPerPixel"}},
    {Id::ImageCompression, Integer, {"IFD0:Compression"}},
    {Id::ImageImageID, Text, {"ExifIFD:ImageUniqueID"}},
    {Id::ImageResolutionUnit, Integer, {"IFD0:ResolutionUnit"}},
    {Id::TelevisionChannelNumber, Integer, {"WTV:MediaOriginalChannel"}},
    {Id::TelevisionEpisodeName, Text, {"WTV:Subtitle"}},
    {Id::TelevisionIsClosedCaptioningAvailable, Integer, {"WTV:VideoClosedCaptioning"}},
    {Id::TelevisionIsATSCContent, Integer, {"WTV:ATSCContent"}},
    {Id::TelevisionIsDTVContent, Integer, {"WTV:DTVContent"}},
    {Id::TelevisionIsHDContent, Integer, {"WTV:HDContent"}},
    {Id::TelevisionIsRepeatBroadcast, Integer, {"WTV:MediaIsRepeat"}},
    {Id::TelevisionIsSAP, Integer, {"WTV:MediaIsSAP"}},
    {Id::TelevisionNetworkAffiliation, Text, {"WTV:MediaNetworkAffiliation"}},
    {Id::TelevisionOriginalBroadcastDate, Date, {"WTV:MediaOriginalBroadcastDateTime"}},
    {Id::TelevisionProgramDescription, Text, {"WTV:SubtitleDescription"}},
    {Id::TelevisionRecordingTime, Date, {"WTV:EncodeTime"}},
    {Id::TelevisionStationCallSign, Text, {"WTV:MediaStationCallSign"}},
    {Id::TelevisionStationName, Text, {"WTV:MediaStationName"}},
    {Id::VideoFrameHeight, Integer, {"Red:ImageHeight"}},
    {Id::VideoFrameRate, Number, {"Red:FrameRate"}},
    {Id::VideoFrameWidth, Integer, {"Red:ImageWidth"}},

    {Id::TextByteCount, Integer, {"Bytes"}},
    {Id::TextCharacterCount, Integer, {"Characters", "XMP-meta:Document-statisticCharacter-count"}},
    {Id::TextContributor, List, {"XMP-dc:Contributor"}},
    {Id::TextDateCreated,
     Date,
     {"CreateDate", "XMP-meta:Creation-date", "XMP-xmp:CreateDate", "ExifIFD:CreateDate"}},
    {Id::TextDatePrinted, Date, {"LastPrinted", "XMP-meta:Print-date"}},
    {Id::TextDateSaved, Date, {"ModifyDate", "XMP-xmp:ModifyDate", "IFD0:ModifyDate"}},
    {Id::TextDivision, Text, {"XML:Division"}},
    {Id::TextDocumentID, Text, {"XMP-dc:Identifier", "XMP-xmpMM:DocumentID", "HTML-dc:Identifier"}},
    {Id::TextHiddenSlideCount, Integer, {"HiddenSlides"}},
    {Id::TextLastAuthor, Text, {"LastModifiedBy", "HTML-office:LastAuthor"}},
    {Id::TextLineCount, Integer, {"Lines"}},
    {Id::TextManager, Text, {"Manager"}},
    {Id::TextMultimediaClipCount, Integer, {"MMClips"}},
    {Id::TextNoteCount, Integer, {"Notes"}},
    {Id::TextPageCount, Integer, {"Pages", "PDF:PageCount", "XMP-meta:Document-statisticPage-count"}},
    {Id::TextParagraphCount, Integer, {"Paragraphs", "XMP-meta:Document-statisticParagraph-count"}},
    {Id::TextPresentationFormat, Text, {"PresentationFormat", "FlashPix:PresentationTarget"}},
    {Id::TextRevisionNumber, Text, {"RevisionNumber", "XMP-meta:Editing-cycles"}},
    {Id::TextSecurity, Integer, {"DocSecurity", "FlashPix:Security"}},
    {Id::TextSlideCount, Integer, {"Slides"}},
    {Id::TextTemplate, Text, {"Template"}},
    {Id::TextVersion, Text, {"XML:Version", "PDF:PDFVersion"}},
    {Id::TextWordCount, Integer, {"Words", "XMP-meta:Document-statisticWord-count"}},
});

constexpr Id kComputed[] = {
    Id::SummaryKeywords,       Id::SummarySubject,
    Id::ImageBitDepth,         Id::ImageDimensions,
    Id::ImageHorizontalSize,   Id::ImageHorizontalResolution,
    Id::ImageVerticalSize,     Id::ImageVerticalResolution,
    Id::ImageCompressionText,  Id::MediaDuration,
    Id::PhotoMeteringModeText, Id::PhotoExposureProgramText,
    Id::PhotoOrientationText,  Id::PhotoPhotometricInterpretationText,
    Id::PhotoProgramModeText,  Id::PhotoWhiteBalanceText,
    Id::TextTotalEditingTime,
};

/// Numbers whose words are shown in a column beside them.
constexpr std::pair<Id, Id> kWords[] = {
    {Id::ImageCompression, Id::ImageCompressionText},
    {Id::PhotoExposureProgram, Id::PhotoExposureProgramText},
    {Id::PhotoMeteringMode, Id::PhotoMeteringModeText},
    {Id::PhotoOrientation, Id::PhotoOrientationText},
    {Id::PhotoPhotometricInterpretation, Id::PhotoPhotometricInterpretationText},
    {Id::PhotoProgramMode, Id::PhotoProgramModeText},
    {Id::PhotoWhiteBalance, Id::PhotoWhiteBalanceText},
};

QStringList valuesOf(const FileTags& tags, const char* name) {
    const QString tag = QString::fromLatin1(name);
    if (tag.contains(u':')) return tags.value(tag);
    for (const char* group : kDocumentGroups)
        if (const auto found = tags.constFind(QString::fromLatin1(group) + u':' + tag); found != tags.cend())
            return *found;
    return {};
}

QString textOf(const FileTags& tags, const char* name) {
    return valuesOf(tags, name).join(QStringLiteral("; ")).trimmed();
}

QStringList wordsOf(const QStringList& values) {
    static const QRegularExpression division(QStringLiteral("[,;]"));
    QStringList words;
    for (const QString& word : values.join(u';').split(division))
        if (const QString trimmed = word.trimmed(); !trimmed.isEmpty()) words.append(trimmed);
    return words;
}

/// A moment where a zone is named, else the digits of some clock. `inUtc` for formats that name no zone since
/// they know only one.
PropertyValue dateOf(const QString& text, bool inUtc) {
    static const QRegularExpression zone(QStringLiteral(R"((Z|[+\-]\d\d:\d\d)$)"));
    const bool isZoned = zone.match(text).hasMatch();
    if (isZoned || inUtc) {
        if (const auto time = parsePointInTime(isZoned ? text : text + u'Z')) return *time;
    } else if (const auto time = parseLocalTime(text)) {
        return *time;
    }
    return {};
}

std::optional<double> numberOf(const QString& text) {
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

PropertyValue valueOf(TagForm form, const QStringList& values, bool inUtc) {
    QStringList texts;
    for (const QString& value : values)
        if (const QString text = value.trimmed(); !text.isEmpty()) texts.append(text);
    if (texts.isEmpty()) return {};
    switch (form) {
        case Text:
            return texts.join(QStringLiteral("; "));
        case List:
            return texts;
        case Integer:
            if (const auto number = parseLeadingInteger(texts.front())) return *number;
            break;
        case Number:
            if (const auto number = numberOf(texts.front())) return *number;
            break;
        case Identifier:
            if (const QString text = guidText(QByteArray::fromHex(texts.front().toLatin1())); !text.isEmpty())
                return text;
            break;
        case Date:
            return dateOf(texts.front(), inUtc);
        case LocalDate:
            if (const auto time = parseLocalTime(texts.front())) return *time;
            break;
    }
    return {};
}

/// Office documents keep their subject where all others keep their keywords, and who saved last where others
/// keep who wrote.
void addOfficeTexts(const FileTags& tags, PropertyValues& values) {
    const auto hasGroup = [&](QStringView group) {
        return std::any_of(tags.keyBegin(), tags.keyEnd(),
                           [&](const QString& tag) { return tag.startsWith(group); });
    };
    const bool isOpenDocument = hasGroup(u"XMP-meta:");
    const bool isOffice = isOpenDocument || hasGroup(u"XML:");
    values.addText(Id::SummarySubject, textOf(tags, "Subject"));
    for (const char* tag : {"Keywords", "XMP-meta:Keyword"})
        values.addList(Id::SummaryKeywords, wordsOf(valuesOf(tags, tag)));
    const QStringList subject = tags.value(QStringLiteral("XMP-dc:Subject"));
    if (isOffice)
        values.addText(Id::SummarySubject, subject.join(QStringLiteral("; ")));
    else
        values.addList(Id::SummaryKeywords, subject);
    if (!isOpenDocument) return;
    values.addText(Id::TextLastAuthor, textOf(tags, "XMP-dc:Creator"));
    values.add(Id::TextDateSaved, dateOf(textOf(tags, "XMP-dc:Date"), false));
}

/// In the unit that the property has, a ten-millionth of a second; one format counts seconds, the others
/// minutes.
void addEditingTime(const FileTags& tags, PropertyValues& values) {
    constexpr std::int64_t kTicksInASecond = 10'000'000;
    const QString seconds = textOf(tags, "FlashPix:TotalEditTime");
    const auto number = parseLeadingInteger(seconds.isEmpty() ? textOf(tags, "TotalEditTime") : seconds);
    if (number && *number >= 0 && *number < (1LL << 32))
        values.add(Id::TextTotalEditingTime, *number * kTicksInASecond * (seconds.isEmpty() ? 60 : 1));
}

/// "4in", "210mm", "120": points, of which an inch of such drawings has 96.
std::optional<std::int64_t> pointsOf(const QString& length) {
    static const QRegularExpression form(QStringLiteral(R"(^(\d+(?:\.\d+)?)\s*(px|in|cm|mm|pt|pc|)$)"));
    static constexpr std::pair<QStringView, double> kUnits[] = {
        {u"", 1},           {u"px", 1},        {u"in", 96}, {u"cm", 96 / 2.54},
        {u"mm", 96 / 25.4}, {u"pt", 96 / 72.}, {u"pc", 16}};
    const QRegularExpressionMatch match = form.match(length.trimmed());
    if (!match.hasMatch()) return std::nullopt;
    const auto* unit =
        std::ranges::find(kUnits, match.capturedView(2), &std::pair<QStringView, double>::first);
    const double points = match.captured(1).toDouble() * unit->second;
    if (points < 0.5 || points > 1e9) return std::nullopt;
    return std::llround(points);
}

/// Dots for each inch.
void addResolution(const FileTags& tags, PropertyValues& values) {
    constexpr double kInchesInAMetre = 0.0254;
    constexpr double kCentimetresInAnInch = 2.54;
    const bool isByCentimetre = textOf(tags, "IFD0:ResolutionUnit") == u"3";
    const bool isByMetre = textOf(tags, "PNG-pHYs:PixelUnits") == u"1";
    const auto add = [&](Id property, const char* tag, double factor) {
        if (const auto number = numberOf(textOf(tags, tag)); number && *number > 0)
            values.add(property, *number * factor);
    };
    if (textOf(tags, "IFD0:ResolutionUnit") != u"1") {
        add(Id::ImageHorizontalResolution, "IFD0:XResolution", isByCentimetre ? kCentimetresInAnInch : 1);
        add(Id::ImageVerticalResolution, "IFD0:YResolution", isByCentimetre ? kCentimetresInAnInch : 1);
    }
    add(Id::ImageHorizontalResolution, "GIMP:XResolution", 1);
    add(Id::ImageVerticalResolution, "GIMP:YResolution", 1);
    if (isByMetre) {
        add(Id::ImageHorizontalResolution, "PNG-pHYs:PixelsPerUnitX", kInchesInAMetre);
        add(Id::ImageVerticalResolution, "PNG-pHYs:PixelsPerUnitY", kInchesInAMetre);
    }
    add(Id::ImageHorizontalResolution, "File:PixelsPerMeterX", kInchesInAMetre);
    add(Id::ImageVerticalResolution, "File:PixelsPerMeterY", kInchesInAMetre);
}

/// Of a whole point.
void addDepth(const FileTags& tags, PropertyValues& values) {
    const auto add = [&](const char* tag, int components) {
        if (const auto bits = parseLeadingInteger(textOf(tags, tag)); bits && *bits > 0 && *bits <= 64)
            values.add(Id::ImageBitDepth, *bits * components);
    };
    if (tags.contains(QStringLiteral("File:BMPVersion"))) add("File:BitDepth", 1);
    // Of the components of a scan; the other kinds are those of single signals.
    if (textOf(tags, "File:ComponentsConfiguration") == u"50") add("File:BitDepth", 3);
    if (textOf(tags, "File:ComponentsConfiguration") == u"51") add("File:BitDepth", 4);
    add("GIF:BitsPerPixel", 1);
    add("File:BitsPerPixel", 1);
    QStringList samples = textOf(tags, "IFD0:BitsPerSample").split(u' ');
    std::int64_t depth = 0;
    for (const QString& bits : samples) depth += std::clamp(bits.toInt(), 0, 64);
    if (depth > 0) values.add(Id::ImageBitDepth, depth);
}

void addWords(PropertyValues& values) {
    for (const auto& [number, words] : kWords)
        if (const auto* value = std::get_if<std::int64_t>(&values.at(number)))
            values.addText(words, photoWords(words, *value));
}

void addDuration(const FileTags& tags, PropertyValues& values) {
    constexpr double kTicksInASecond = 1e7;
    constexpr double kMostSeconds = 1e8;
    const auto seconds = numberOf(textOf(tags, "WTV:Duration"));
    if (seconds && *seconds > 0 && *seconds < kMostSeconds)
        values.add(Id::MediaDuration, static_cast<std::int64_t>(std::llround(*seconds * kTicksInASecond)));
}

void addSize(const FileTags& tags, PropertyValues& values) {
    if (textOf(tags, "File:MIMEType").startsWith(u"video/")) return;
    static const QRegularExpression separator(QStringLiteral("[ ,]+"));
    QStringList size = textOf(tags, "Composite:ImageSize").split(u' ');
    if (tags.contains(QStringLiteral("SVG:Xmlns")) || tags.contains(QStringLiteral("SVG:ViewBox"))) {
        size = {textOf(tags, "SVG:ImageWidth"), textOf(tags, "SVG:ImageHeight")};
        const QStringList box = textOf(tags, "SVG:ViewBox").split(separator);
        if ((!pointsOf(size[0]) || !pointsOf(size[1])) && box.size() == 4) size = box.mid(2);
    }
    if (size.size() != 2) return;
    const auto width = pointsOf(size[0]);
    const auto height = pointsOf(size[1]);
    if (!width || !height) return;
    values.add(Id::ImageHorizontalSize, *width);
    values.add(Id::ImageVerticalSize, *height);
    values.add(Id::ImageDimensions, QStringLiteral("%1 x %2").arg(*width).arg(*height));
}

std::mutex& sourceMutex() {
    static std::mutex mutex;
    return mutex;
}

std::shared_ptr<TagSource>& sourceInUse() {
    static std::shared_ptr<TagSource> source;
    return source;
}

}  // namespace

void setTagSource(std::shared_ptr<TagSource> source) {
    const std::lock_guard lock(sourceMutex());
    sourceInUse().swap(source);
}

std::shared_ptr<TagSource> tagSource() {
    const std::lock_guard lock(sourceMutex());
    return sourceInUse();
}

bool documentsCanGive(PropertyId property) {
    return std::ranges::find(kSources, property, &TagSourceRow::property) != kSources.end() ||
           std::ranges::find(kComputed, property) != std::end(kComputed);
}

void addDocumentProperties(const FileTags& tags, PropertyValues& values) {
    for (const TagSourceRow& source : kSources)
        for (const char* tag : source.tags) {
            if (tag == nullptr || values.has(source.property)) break;
            const bool inUtc = tags.contains(QStringLiteral("FlashPix:") + QString::fromLatin1(tag));
            values.add(source.property, valueOf(source.form, valuesOf(tags, tag), inUtc));
        }
    addOfficeTexts(tags, values);
    addEditingTime(tags, values);
    addSize(tags, values);
    addDepth(tags, values);
    addResolution(tags, values);
    addDuration(tags, values);
    addWords(values);
}

void readDocumentProperties(const std::filesystem::path& file, PropertyValues& values) {
    if (const std::shared_ptr<TagSource> source = tagSource())
        addDocumentProperties(source->tagsOf(file), values);
}

}  // namespace properties

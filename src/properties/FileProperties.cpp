#include "properties/FileProperties.h"

#include "platform/FileFacts.h"
#include "platform/RegularFile.h"
#include "platform/Text.h"
#include "platform/UserNames.h"

#include <QMimeDatabase>

namespace properties {
namespace {

using Id = PropertyId;

constexpr Id kGiven[] = {Id::SystemName,       Id::DiskDateAccessed,       Id::DiskAttributes,
                         Id::DiskDateCreated,  Id::DiskDateModified,       Id::DiskKind,
                         Id::DiskOwner,        Id::DiskFileAllocationSize, Id::DiskFileSize,
                         Id::DiskSubType,      Id::SummaryContentType,     Id::SummaryFileExtension,
                         Id::SummaryFileOwner, Id::SummaryItemTypeText,    Id::SummaryKindText};

constexpr std::size_t kHeadBytes = 4096;

// With all that is made on them: office documents are archives or compound files.
constexpr const char* kDocumentTypes[] = {"application/msword",
                                          "application/pdf",
                                          "application/postscript",
                                          "application/rtf",
                                          "application/vnd.adobe.indesign-idml-package",
                                          "application/vnd.microsoft.portable-executable",
                                          "application/vnd.ms-excel",
                                          "application/vnd.ms-powerpoint",
                                          "application/vnd.visio",
                                          "application/x-dosexec",
                                          "application/x-ms-dos-executable",
                                          "application/x-msdownload",
                                          "application/x-ole-storage",
                                          "application/zip",
                                          "text/html",
                                          "text/rtf"};

// Pictures, films and pages that the MIME database does not name, and of which no library here knows
// anything.
constexpr QStringView kDocumentExtensions[] = {u".btf", u".dpx", u".hdr", u".indd", u".mrc",
                                               u".pfm", u".pgf", u".r3d", u".wtv"};

// The bits that the attribute column has always had.
constexpr std::int64_t kReadOnlyBit = 1;
constexpr std::int64_t kHiddenBit = 2;

QByteArray headOf(const std::filesystem::path& file) {
    return QByteArray::fromStdString(platform::readHead(file, kHeadBytes));
}

QMimeType typeOf(const std::filesystem::path& file) {
    const QMimeDatabase database;
    const QString name = platform::display(file.filename());
    const QList<QMimeType> byName = database.mimeTypesForFileName(name);
    if (byName.size() == 1) return byName.front();
    return database.mimeTypeForFileNameAndData(name, headOf(file));
}

/// The names that the kinds have in keys; the first letter is raised for people.
QString kindOf(const QMimeType& type) {
    const QString name = type.name();
    if (name.startsWith(u"image/")) return QStringLiteral("picture");
    if (name.startsWith(u"audio/")) return QStringLiteral("music");
    if (name.startsWith(u"video/")) return QStringLiteral("video");
    if (name.startsWith(u"font/")) return QStringLiteral("font");
    if (type.inherits(QStringLiteral("application/x-executable")) ||
        type.inherits(QStringLiteral("application/x-sharedlib")))
        return QStringLiteral("program");
    if (type.inherits(QStringLiteral("text/calendar"))) return QStringLiteral("calendar");
    if (type.inherits(QStringLiteral("text/vcard"))) return QStringLiteral("contact");
    if (type.inherits(QStringLiteral("text/html"))) return QStringLiteral("webhistory");
    const bool document = type.inherits(QStringLiteral("text/plain")) || name == u"application/pdf" ||
                          name.contains(u"document") || name.contains(u"word") ||
                          name.contains(u"presentation") || name.contains(u"spreadsheet");
    return document ? QStringLiteral("document") : QString();
}

void addType(const std::filesystem::path& file, PropertyValues& values) {
    const QMimeType type = typeOf(file);
    const QString name = type.name();
    values.addText(Id::SummaryContentType, name);
    values.addText(Id::DiskSubType, name.section(u'/', 1));
    values.addText(Id::SummaryItemTypeText, type.comment());
    QString kind = kindOf(type);
    values.addText(Id::DiskKind, kind);
    if (kind == u"webhistory") kind = QStringLiteral("web page");
    if (!kind.isEmpty()) kind[0] = kind[0].toUpper();
    values.addText(Id::SummaryKindText, kind);
}

}  // namespace

bool fileCanGive(PropertyId property) {
    return std::ranges::find(kGiven, property) != std::end(kGiven);
}

void readFileProperties(const std::filesystem::path& file, PropertyValues& values) {
    const std::optional<platform::FileFacts> facts = platform::factsOf(file);
    if (!facts || !facts->isKnown) return;
    values.addText(Id::SystemName, platform::display(file.filename()));
    values.add(Id::DiskDateAccessed, PointInTime{facts->accessed});
    values.add(Id::DiskDateModified, PointInTime{facts->modified});
    values.add(Id::DiskDateCreated, PointInTime{facts->created});
    values.add(Id::DiskFileSize, static_cast<std::int64_t>(facts->size));
    values.add(Id::DiskFileAllocationSize, static_cast<std::int64_t>(facts->allocatedBytes));
    std::int64_t attributes = 0;
    if (facts->isReadOnly) attributes |= kReadOnlyBit;
    if (facts->isHidden) attributes |= kHiddenBit;
    values.add(Id::DiskAttributes, attributes);
    const QString owner = platform::wide(platform::nameOfUser(facts->owner));
    values.addText(Id::DiskOwner, owner);
    values.addText(Id::SummaryFileOwner, owner);
    values.addText(Id::SummaryFileExtension, platform::display(file.extension()));
    addType(file, values);
}

MediaClass mediaClassOf(const std::filesystem::path& file) {
    const QString extension = platform::display(file.extension()).toLower();
    // A note of metadata that lies beside a photo holds the photo's.
    if (extension == u".xmp") return MediaClass::Photo;
    if (std::ranges::find(kDocumentExtensions, QStringView(extension)) != std::end(kDocumentExtensions))
        return MediaClass::Document;
    const QMimeType type = typeOf(file);
    const QString name = type.name();
    if (name.startsWith(u"image/")) return MediaClass::Photo;
    if (name.startsWith(u"audio/")) return MediaClass::Audio;
    const bool container = name.startsWith(u"video/") || name == u"application/ogg" ||
                           name == u"application/mxf" || name == u"application/vnd.rn-realmedia" ||
                           name == u"application/x-matroska" || name == u"application/vnd.ms-asf";
    if (container) return MediaClass::Video;
    const bool isDocument = std::ranges::any_of(
        kDocumentTypes, [&](const char* known) { return type.inherits(QString::fromLatin1(known)); });
    return isDocument ? MediaClass::Document : MediaClass::Other;
}

}  // namespace properties

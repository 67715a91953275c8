#include "properties/FileProperties.h"

#include "platform/FileDescriptor.h"
#include "platform/Text.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>

#include <QMimeDatabase>
#include <vector>

namespace properties {
namespace {

using Id = PropertyId;

constexpr Id kGiven[] = {Id::SystemName,       Id::DiskDateAccessed,       Id::DiskAttributes,
                         Id::DiskDateCreated,  Id::DiskDateModified,       Id::DiskKind,
                         Id::DiskOwner,        Id::DiskFileAllocationSize, Id::DiskFileSize,
                         Id::DiskSubType,      Id::SummaryContentType,     Id::SummaryFileExtension,
                         Id::SummaryFileOwner, Id::SummaryItemTypeText,    Id::SummaryKindText};

constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;
constexpr qsizetype kHeadBytes = 4096;
constexpr std::int64_t kBlockBytes = 512;

// The bits that the attribute column has always had.
constexpr std::int64_t kReadOnlyBit = 1;
constexpr std::int64_t kHiddenBit = 2;

PointInTime timeOf(const struct statx_timestamp& time) {
    return {time.tv_sec * kNanosecondsInASecond + time.tv_nsec};
}

QByteArray headOf(const std::filesystem::path& file) {
    // Not blocking, should a pipe have taken the file's place meanwhile.
    const platform::FileDescriptor descriptor(
        ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat facts {};
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
    QByteArray head(kHeadBytes, Qt::Uninitialized);
    const ssize_t got = ::read(descriptor.get(), head.data(), static_cast<std::size_t>(kHeadBytes));
    head.resize(std::max<ssize_t>(got, 0));
    return head;
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

QString ownerName(uid_t owner) {
    std::vector<char> buffer(16384);
    struct passwd entry {};
    struct passwd* found = nullptr;
    if (::getpwuid_r(owner, &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr)
        return QString::number(owner);
    return QString::fromUtf8(found->pw_name);
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
    struct statx facts {};
    if (::statx(AT_FDCWD, file.c_str(), AT_NO_AUTOMOUNT, STATX_BASIC_STATS | STATX_BTIME, &facts) != 0)
        return;
    const QString name = platform::display(file.filename());
    values.addText(Id::SystemName, name);
    values.add(Id::DiskDateAccessed, timeOf(facts.stx_atime));
    values.add(Id::DiskDateModified, timeOf(facts.stx_mtime));
    values.add(Id::DiskDateCreated,
               timeOf((facts.stx_mask & STATX_BTIME) != 0 ? facts.stx_btime : facts.stx_ctime));
    values.add(Id::DiskFileSize, static_cast<std::int64_t>(facts.stx_size));
    values.add(Id::DiskFileAllocationSize, static_cast<std::int64_t>(facts.stx_blocks) * kBlockBytes);
    std::int64_t attributes = 0;
    if ((facts.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) attributes |= kReadOnlyBit;
    if (name.startsWith(u'.')) attributes |= kHiddenBit;
    values.add(Id::DiskAttributes, attributes);
    values.addText(Id::DiskOwner, ownerName(facts.stx_uid));
    values.addText(Id::SummaryFileOwner, ownerName(facts.stx_uid));
    values.addText(Id::SummaryFileExtension, platform::display(file.extension()));
    addType(file, values);
}

MediaClass mediaClassOf(const std::filesystem::path& file) {
    // A note of metadata that lies beside a photo holds the photo's.
    if (platform::display(file.extension()).toLower() == u".xmp") return MediaClass::Photo;
    const QString name = typeOf(file).name();
    if (name.startsWith(u"image/")) return MediaClass::Photo;
    if (name.startsWith(u"audio/")) return MediaClass::Audio;
    const bool container = name.startsWith(u"video/") || name == u"application/ogg" ||
                           name == u"application/mxf" || name == u"application/vnd.rn-realmedia" ||
                           name == u"application/x-matroska" || name == u"application/vnd.ms-asf";
    return container ? MediaClass::Video : MediaClass::Other;
}

}  // namespace properties

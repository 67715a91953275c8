#include "app/LanguageCollection.h"

#include "app/SoundCollection.h"

#include <QCryptographicHash>
#include <QDir>
#include <QResource>
#include <QXmlStreamReader>
#include <atomic>
#include <fstream>
#include <iterator>

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kCheckSumMark = "\nsha256 ";
constexpr std::size_t kHexDigits = 64;
constexpr std::uintmax_t kLargestFile = 64u << 20;
constexpr int kNoNumber = -1;

// The collection without its check sum line; empty when the line is missing or says something else.
QByteArray checkedCollection(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error) || fs::file_size(file, error) > kLargestFile || error) return {};
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    const std::size_t mark = bytes.rfind(kCheckSumMark);
    if (mark == std::string::npos || bytes.size() < mark + kCheckSumMark.size() + kHexDigits) return {};
    const std::string promised = bytes.substr(mark + kCheckSumMark.size(), kHexDigits);
    bytes.resize(mark);
    QByteArray collection = QByteArray::fromStdString(bytes);
    const QByteArray found = QCryptographicHash::hash(collection, QCryptographicHash::Sha256).toHex();
    return found.toStdString() == promised ? collection : QByteArray();
}

QString privateRoot() {
    static std::atomic<int> next = 0;
    return QStringLiteral("/tagwright-language-%1").arg(next++);
}

}  // namespace

LanguageCollection::LanguageCollection(const fs::path& file) {
    valid_ = load(file);
    if (valid_) return;
    sources_.clear();
    translations_.clear();
    formTranslations_.clear();
    untranslatedFormTexts_ = 0;
}

LanguageCollection::~LanguageCollection() {
    if (!root_.isEmpty())
        QResource::unregisterResource(reinterpret_cast<const uchar*>(collection_.constData()), root_);
}

bool LanguageCollection::load(const fs::path& file) {
    collection_ = checkedCollection(file);
    if (collection_.isEmpty() || !isSoundCollection(collection_)) return false;
    const QString root = privateRoot();
    if (!QResource::registerResource(reinterpret_cast<const uchar*>(collection_.constData()), root))
        return false;
    root_ = root;
    return readTexts() && !sources_.isEmpty();
}

QByteArray LanguageCollection::read(const QString& name) const {
    if (root_.isEmpty()) return {};
    const QResource resource(root_ + u'/' + name);
    const qint64 size = resource.isValid() ? resource.uncompressedSize() : -1;
    // A damaged content may promise more than there is memory for.
    if (size < 0 || size > qint64{kLargestFile}) return {};
    const QByteArray content = resource.uncompressedData();
    return {content.constData(), content.size()};  // what is not compressed points into the collection
}

QString LanguageCollection::nameOfForm(int templateNumber) {
    return QStringLiteral("forms/%1.ui").arg(templateNumber);
}

QList<int> LanguageCollection::forms() const {
    QList<int> numbers;
    if (!valid_) return numbers;
    const QDir folder(QStringLiteral(":") + root_ + QStringLiteral("/forms"));
    for (const QFileInfo& form : folder.entryInfoList({QStringLiteral("*.ui")}, QDir::Files))
        numbers.append(form.baseName().toInt());
    return numbers;
}

// Messages with an id are the numbered texts; those without are texts of the form whose class names the
// context.
bool LanguageCollection::readTexts() {
    QXmlStreamReader xml(read(QStringLiteral("texts.ts")));
    QString context;
    int number = kNoNumber;
    QString source;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) continue;
        if (xml.name() == u"name") {
            context = xml.readElementText();
        } else if (xml.name() == u"message") {
            const QStringView id = xml.attributes().value(QLatin1StringView("id"));
            number = id.isEmpty() ? kNoNumber : id.toInt();
        } else if (xml.name() == u"source") {
            source = xml.readElementText();
            if (number != kNoNumber) sources_.insert(number, source);
        } else if (xml.name() == u"translation") {
            const QString translation = xml.readElementText();
            if (number != kNoNumber && !translation.isEmpty()) translations_.insert(number, translation);
            if (number != kNoNumber) continue;
            if (translation.isEmpty())
                ++untranslatedFormTexts_;
            else
                formTranslations_.insert({context, source}, translation);
        }
    }
    return !xml.hasError();
}

}  // namespace app

#include "app/LanguageFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QResource>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <atomic>
#include <fstream>
#include <iterator>

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kCheckSumMark = "\nsha256 ";
constexpr std::size_t kHexDigits = 64;
constexpr int kNoNumber = -1;
constexpr std::uintmax_t kLargestFile = 64u << 20;

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

// An entry without a text of its own says what its command's string says.
MenuEntry readEntry(QXmlStreamReader& xml, const QHash<int, QString>& texts) {
    MenuEntry entry;
    if (xml.name() == u"separator") {
        xml.skipCurrentElement();
        return entry;
    }
    entry.commandId = xml.attributes().value(QLatin1StringView("command")).toInt();
    const QStringView ownText = xml.attributes().value(QLatin1StringView("text"));
    entry.text = texts.value(ownText.isEmpty() ? entry.commandId : ownText.toInt());
    while (xml.readNextStartElement()) entry.children.push_back(readEntry(xml, texts));
    return entry;
}

// The form with its strings in the language. What is not well-formed stays as it is, for the loader to tell.
QByteArray translated(const QByteArray& form, const QHash<std::pair<QString, QString>, QString>& texts) {
    QByteArray result;
    QXmlStreamReader xml(form);
    QXmlStreamWriter writer(&result);
    QString context;
    while (!xml.atEnd()) {
        xml.readNext();
        writer.writeCurrentToken(xml);
        if (!xml.isStartElement()) continue;
        const bool isClass = context.isEmpty() && xml.name() == u"class";
        if (!isClass && xml.name() != u"string") continue;
        const QString source = xml.readElementText();
        if (isClass) context = source;
        writer.writeCharacters(isClass ? source : texts.value({context, source}, source));
        writer.writeEndElement();
    }
    return xml.hasError() ? form : result;
}

}  // namespace

LanguageFile::LanguageFile(const fs::path& installPath, int language) {
    valid_ = load(pathOf(installPath, language));
    if (valid_) return;
    texts_.clear();
    menus_.clear();
}

LanguageFile::~LanguageFile() {
    if (!root_.isEmpty())
        QResource::unregisterResource(reinterpret_cast<const uchar*>(collection_.constData()), root_);
}

fs::path LanguageFile::pathOf(const fs::path& installPath, int language) {
    return installPath / "babel" / QString::asprintf("%04d.dlk", language).toStdString();
}

bool LanguageFile::load(const fs::path& file) {
    collection_ = checkedCollection(file);
    if (collection_.isEmpty()) return false;
    const QString root = privateRoot();
    if (!QResource::registerResource(reinterpret_cast<const uchar*>(collection_.constData()), root))
        return false;
    root_ = root;
    return readTexts() && !texts_.isEmpty() && readMenus();
}

QByteArray LanguageFile::read(const QString& name) const {
    if (root_.isEmpty()) return {};
    QFile file(QStringLiteral(":") + root_ + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A Linguist file. Messages with an id are the numbered texts, and an untranslated one speaks its source
// text; those without an id are texts of the form whose class names the context.
bool LanguageFile::readTexts() {
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
            if (number != kNoNumber) texts_.insert(number, source);
        } else if (xml.name() == u"translation") {
            const QString translation = xml.readElementText();
            if (translation.isEmpty()) continue;
            if (number != kNoNumber)
                texts_.insert(number, translation);
            else
                formTexts_.insert({context, source}, translation);
        }
    }
    return !xml.hasError();
}

bool LanguageFile::readMenus() {
    const QByteArray markup = read(QStringLiteral("menus.xml"));
    if (markup.isEmpty()) return true;
    QXmlStreamReader xml(markup);
    if (!xml.readNextStartElement() || xml.name() != u"menus") return false;
    while (xml.readNextStartElement()) {
        const int number = xml.attributes().value(QLatin1StringView("number")).toInt();
        std::vector<MenuEntry> entries;
        while (xml.readNextStartElement()) entries.push_back(readEntry(xml, texts_));
        menus_.insert(number, entries);
    }
    return !xml.hasError();
}

QByteArray LanguageFile::form(int templateNumber) const {
    const QByteArray form = read(QStringLiteral("forms/%1.ui").arg(templateNumber));
    return formTexts_.isEmpty() ? form : translated(form, formTexts_);
}

QString LanguageFile::formatted(int number, std::initializer_list<QString> values) const {
    return formatText(text(number), values);
}

QString formatText(QStringView format, std::initializer_list<QString> values) {
    QString result;
    const QString* value = values.begin();
    for (qsizetype at = 0; at < format.size(); ++at) {
        const QChar kind = at + 1 < format.size() ? format[at + 1] : QChar();
        if (format[at] != u'%' || (kind != u's' && kind != u'd' && kind != u'u' && kind != u'%')) {
            result += format[at];
            continue;
        }
        ++at;
        if (kind == u'%') {
            result += u'%';
        } else if (value != values.end()) {
            result += *value++;
        }
    }
    return result;
}

}  // namespace app

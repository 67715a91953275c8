#include "tags/LabelHelp.h"

#include "platform/Text.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <charconv>

namespace tags {

namespace {

constexpr std::size_t kValuesShown = 40;

/// English, German, French, Spanish.
using Phrase = std::array<const char16_t*, kLabelLanguages>;

constexpr Phrase kUnnamed = {u"Unnamed tag", u"Tag ohne Namen", u"Balise sans nom", u"Etiqueta sin nombre"};
constexpr Phrase kName = {u"Name: %1", u"Name: %1", u"Nom : %1", u"Nombre: %1"};
constexpr Phrase kSource = {u"Tag %1 of %2", u"Tag %1 von %2", u"Balise %1 de %2", u"Etiqueta %1 de %2"};
constexpr Phrase kTopic = {u"Topic: %1", u"Thema: %1", u"Sujet : %1", u"Tema: %1"};
constexpr Phrase kFormat = {u"Format: %1", u"Format: %1", u"Format : %1", u"Formato: %1"};
constexpr Phrase kCount = {u"%1, %2 of them", u"%1, %2 davon", u"%1, au nombre de %2", u"%1, %2 en total"};
constexpr Phrase kCharacters = {u"%1, %2 characters", u"%1, %2 Zeichen", u"%1, %2 caract\u00E8res",
                                u"%1, %2 caracteres"};
constexpr Phrase kByteCount = {u"%1, %2 bytes", u"%1, %2 Byte", u"%1, %2 octets", u"%1, %2 bytes"};
constexpr Phrase kSeveral = {u"%1, several values", u"%1, mehrere Werte", u"%1, plusieurs valeurs",
                             u"%1, varios valores"};
constexpr Phrase kGroup = {u"Group: %1", u"Gruppe: %1", u"Groupe : %1", u"Grupo: %1"};
constexpr Phrase kWritable = {u"Can be written", u"Kann geschrieben werden", u"Peut \u00EAtre \u00E9crite",
                              u"Se puede escribir"};
constexpr Phrase kReadOnly = {u"Read only", u"Nur lesbar", u"En lecture seule", u"Solo lectura"};
constexpr Phrase kValues = {u"Values:", u"Werte:", u"Valeurs :", u"Valores:"};
constexpr Phrase kMoreValues = {u"and %1 more", u"und %1 weitere", u"et %1 autres", u"y %1 m\u00E1s"};

struct FlagEntry {
    char flag;
    Phrase text;
};

/// What follows "Can be written".
constexpr FlagEntry kWritingFlags[] = {
    {LabelFlag::kPermanent,
     {u"cannot be removed", u"kann nicht entfernt werden", u"ne peut pas \u00EAtre supprim\u00E9e",
      u"no se puede eliminar"}},
    {LabelFlag::kAvoid,
     {u"another tag is preferred", u"ein anderes Tag wird bevorzugt",
      u"une autre balise est pr\u00E9f\u00E9r\u00E9e", u"se prefiere otra etiqueta"}},
    {LabelFlag::kUnsafe,
     {u"is not copied along with other tags", u"wird nicht zusammen mit anderen Tags kopiert",
      u"n'est pas copi\u00E9e avec d'autres balises", u"no se copia junto con otras etiquetas"}},
    {LabelFlag::kMandatory,
     {u"made with its group", u"entsteht mit seiner Gruppe", u"cr\u00E9\u00E9e avec son groupe",
      u"se crea con su grupo"}},
};

struct TopicEntry {
    std::string_view topic;
    Phrase text;
};

constexpr TopicEntry kTopics[] = {
    {"Audio", {u"sound", u"Ton", u"son", u"sonido"}},
    {"Author", {u"author and rights", u"Urheber und Rechte", u"auteur et droits", u"autor y derechos"}},
    {"Camera",
     {u"camera and exposure", u"Kamera und Aufnahme", u"appareil et prise de vue", u"c\u00E1mara y toma"}},
    {"Device", {u"device", u"Ger\u00E4t", u"appareil", u"dispositivo"}},
    {"Document", {u"document", u"Dokument", u"document", u"documento"}},
    {"ExifTool", {u"ExifTool", u"ExifTool", u"ExifTool", u"ExifTool"}},
    {"Image", {u"image", u"Bild", u"image", u"imagen"}},
    {"Location", {u"place", u"Ort", u"lieu", u"lugar"}},
    {"Preview", {u"preview", u"Vorschau", u"aper\u00E7u", u"vista previa"}},
    {"Printing", {u"printing", u"Druck", u"impression", u"impresi\u00F3n"}},
    {"Time", {u"date and time", u"Datum und Zeit", u"date et heure", u"fecha y hora"}},
    {"Video", {u"film", u"Film", u"film", u"v\u00EDdeo"}},
};

constexpr Phrase kText = {u"text", u"Text", u"texte", u"texto"};
constexpr Phrase kWholeNumber = {u"whole number", u"ganze Zahl", u"nombre entier", u"n\u00FAmero entero"};
constexpr Phrase kUnsigned = {u"whole number from 0, %1 bits", u"ganze Zahl ab 0, %1 Bit",
                              u"nombre entier \u00E0 partir de 0, %1 bits",
                              u"n\u00FAmero entero desde 0, %1 bits"};
constexpr Phrase kSigned = {u"whole number with sign, %1 bits", u"ganze Zahl mit Vorzeichen, %1 Bit",
                            u"nombre entier avec signe, %1 bits", u"n\u00FAmero entero con signo, %1 bits"};
constexpr Phrase kFraction = {u"fraction", u"Bruch", u"fraction", u"fracci\u00F3n"};
constexpr Phrase kDecimal = {u"decimal number", u"Dezimalzahl", u"nombre d\u00E9cimal",
                             u"n\u00FAmero decimal"};
constexpr Phrase kBytes = {u"binary data", u"Bin\u00E4rdaten", u"donn\u00E9es binaires", u"datos binarios"};
constexpr Phrase kDate = {u"date or time", u"Datum oder Zeit", u"date ou heure", u"fecha u hora"};
constexpr Phrase kDigits = {u"digits", u"Ziffern", u"chiffres", u"d\u00EDgitos"};
constexpr Phrase kYesOrNo = {u"true or false", u"wahr oder falsch", u"vrai ou faux", u"verdadero o falso"};
constexpr Phrase kStructure = {u"structure", u"Struktur", u"structure", u"estructura"};
constexpr Phrase kTextByLanguage = {u"text, one for each language", u"Text, einer je Sprache",
                                    u"texte, un par langue", u"texto, uno por idioma"};
constexpr Phrase kRating = {u"rating", u"Bewertung", u"\u00E9valuation", u"valoraci\u00F3n"};
constexpr Phrase kListed = {u"one of a list of values", u"ein Wert aus einer Liste",
                            u"une valeur d'une liste", u"un valor de una lista"};

struct FormatEntry {
    std::string_view start;  ///< of ExifTool's name of the format
    Phrase text;             ///< %1: the number in that name
};

/// The first that fits counts.
constexpr FormatEntry kFormats[] = {
    {"int8u", kUnsigned},
    {"int16u", kUnsigned},
    {"int32u", kUnsigned},
    {"int64u", kUnsigned},
    {"int8s", kSigned},
    {"int16s", kSigned},
    {"int32s", kSigned},
    {"int64s", kSigned},
    {"integer", kWholeNumber},
    {"unsigned", kWholeNumber},
    {"signed", kWholeNumber},
    {"rational", kFraction},
    {"real", kDecimal},
    {"float", kDecimal},
    {"double", kDecimal},
    {"extended", kDecimal},
    {"fixed", kDecimal},
    {"undef", kBytes},
    {"binary", kBytes},
    {"resize", kBytes},
    {"date", kDate},
    {"digits", kDigits},
    {"boolean", kYesOrNo},
    {"struct", kStructure},
    {"lang-alt", kTextByLanguage},
    {"string", kText},
    {"pstring", kText},
    {"utf8", kText},
    {"var_", kText},
};

struct KindEntry {
    ValueKind kind;
    Phrase text;
};

/// Where ExifTool does not tell a format.
constexpr KindEntry kKinds[] = {
    {ValueKind::Date, kDate},         {ValueKind::Integer, kWholeNumber}, {ValueKind::Text, kText},
    {ValueKind::Rating, kRating},     {ValueKind::List, kListed},         {ValueKind::Binary, kBytes},
    {ValueKind::Rational, kFraction},
};

/// Builds the lines of one text. Texts of tags may hold a percent sign and a digit, so that all arguments of
/// a phrase are put in at once.
class HelpText {
 public:
    HelpText(const HelpFacts& help, std::size_t language) : help_(help), language_(language) {}

    QString text() {
        // What it is for and what can be put into it comes before where it stands.
        lines_ += help_.label;
        if (!help_.facts.note.empty()) lines_ += platform::wide(help_.facts.note);
        lines_ += phrase(kFormat).arg(format());
        lines_ += writing();
        addValues();
        lines_ += phrase(kGroup).arg(platform::wide(help_.tag.group));
        addPlace();
        return lines_.join(u'\n');
    }

 private:
    QString phrase(const Phrase& phrase) const { return QString::fromUtf16(phrase[language_]); }

    void addPlace() {
        if (!help_.tag.name.empty()) lines_ += phrase(kName).arg(platform::wide(help_.tag.name));
        const TagFacts& facts = help_.facts;
        if (!facts.tagId.empty()) lines_ += phrase(kSource).arg(tagNumber(), platform::wide(facts.table));
        const auto* topic = std::ranges::find(kTopics, facts.topic, &TopicEntry::topic);
        if (topic != std::end(kTopics)) lines_ += phrase(kTopic).arg(phrase(topic->text));
    }

    /// Documents on formats give numbers in hexadecimal, ExifTool's tables in decimal.
    QString tagNumber() const {
        const std::string_view id = help_.facts.tagId;
        unsigned number = 0;
        const auto [end, error] = std::from_chars(id.data(), id.data() + id.size(), number);
        if (error != std::errc() || end != id.data() + id.size() || number < 10) return platform::wide(id);
        return platform::wide(id) + " (0x" + QString::number(number, 16).rightJustified(4, u'0') + ')';
    }

    QString format() const {
        const TagFacts& facts = help_.facts;
        QString text = formatName();
        if (!facts.count.empty()) text = phrase(countPhrase()).arg(text, platform::wide(facts.count));
        if (hasFlag(LabelFlag::kSeveralValues)) text = phrase(kSeveral).arg(text);
        return text;
    }

    const Phrase& countPhrase() const {
        const std::string_view format = help_.facts.format;
        if (format.starts_with("string") || format.starts_with("pstring")) return kCharacters;
        return format.starts_with("undef") || format.starts_with("binary") ? kByteCount : kCount;
    }

    QString formatName() const {
        const std::string_view format = help_.facts.format;
        for (const FormatEntry& entry : kFormats) {
            if (!format.starts_with(entry.start)) continue;
            QString text = phrase(entry.text);
            if (!text.contains("%1")) return text;
            const std::size_t digits = format.find_first_of("0123456789");
            return text.arg(platform::wide(
                format.substr(digits, format.find_first_not_of("0123456789", digits) - digits)));
        }
        if (!format.empty()) return platform::wide(format);
        const auto* kind = std::ranges::find(kKinds, help_.tag.valueKind, &KindEntry::kind);
        return kind == std::end(kKinds) ? QString() : phrase(kind->text);
    }

    bool hasFlag(char flag) const { return help_.facts.flags.find(flag) != std::string_view::npos; }

    QString writing() const {
        if (!help_.tag.writable) return phrase(kReadOnly);
        QString text = phrase(kWritable);
        for (const FlagEntry& entry : kWritingFlags) {
            if (hasFlag(entry.flag)) text += "; " + phrase(entry.text);
        }
        return text;
    }

    void addValues() {
        if (help_.values.empty()) return;
        lines_ += phrase(kValues);
        const std::size_t shown = std::min(help_.values.size(), kValuesShown);
        for (std::size_t place = 0; place < shown; ++place) {
            const HelpValue& value = help_.values[place];
            lines_ += value.code == value.text ? value.text : value.code + " = " + value.text;
        }
        const auto hidden = static_cast<int>(help_.values.size() - shown) + help_.valuesLeft;
        if (hidden > 0) lines_ += phrase(kMoreValues).arg(hidden);
    }

    const HelpFacts& help_;
    std::size_t language_;
    QStringList lines_;
};

}  // namespace

QString helpText(const HelpFacts& help, std::size_t language) {
    return HelpText(help, language).text();
}

QString unnamedTagLabel(std::size_t language) {
    return QString::fromUtf16(kUnnamed[language]);
}

}  // namespace tags

#include "tags/LabelLibrary.h"

#include "platform/Text.h"
#include "tags/LabelFiles.h"
#include "tags/LabelHelp.h"

namespace tags {

namespace {

constexpr int kPrimaryLanguageMask = 0x3FF;

struct LanguageEntry {
    int number;
    const char* translations;  ///< none for English
};

constexpr std::array<LanguageEntry, kLabelLanguages> kLanguages = {{
    {9, nullptr},
    {7, ":/labels/de.tsv"},
    {12, ":/labels/fr.tsv"},
    {10, ":/labels/es.tsv"},
}};

std::size_t languageOf(int number) {
    for (std::size_t language = 0; language < kLanguages.size(); ++language) {
        if (kLanguages[language].number == (number & kPrimaryLanguageMask)) return language;
    }
    return kLabelEnglish;
}

std::string nameOf(const TagRecord& tag) {
    return platform::narrow(tag.name);
}

}  // namespace

LabelLibrary::LabelLibrary(int language, const TagDictionary& dictionary)
    : language_(languageOf(language)), dictionary_(dictionary) {}

LabelLibrary::~LabelLibrary() = default;

const LabelFiles& LabelLibrary::files() const {
    if (!files_) files_ = std::make_unique<LabelFiles>();
    return *files_;
}

const LabelTranslations* LabelLibrary::translations(std::size_t language) const {
    auto& loaded = translations_[language];
    if (!loaded && kLanguages[language].translations) {
        loaded = std::make_unique<LabelTranslations>(kLanguages[language].translations);
    }
    return loaded.get();
}

std::optional<TagRecord> LabelLibrary::record(int tagId) const {
    if (tagId < 0) return std::nullopt;
    return dictionary_.FindTagById(static_cast<std::uint32_t>(tagId));
}

QString LabelLibrary::labelOf(const TagRecord& tag) const {
    const auto facts = files().facts(tag.id);
    if (!facts) return {};
    const LabelTranslations* translated = translations(language_);
    const std::string_view found = translated ? translated->label(nameOf(tag)) : std::string_view();
    const QString label = platform::wide(found.empty() ? facts->label : found);
    return label.isEmpty() ? unnamedTagLabel(language_) : label;
}

std::vector<LabelLibrary::Choice> LabelLibrary::choicesOf(const TagRecord& tag, int list,
                                                          std::size_t language) const {
    const LabelTranslations* translated = translations(language);
    const std::string name = nameOf(tag);
    std::unordered_map<std::string_view, std::string_view> texts;
    if (translated) texts = translated->values(name);
    std::vector<Choice> choices;
    for (const ListValue& value : files().list(list).values) {
        const auto found = texts.find(value.text);
        choices.push_back({platform::wide(value.code), platform::wide(value.text),
                           platform::wide(found == texts.end() ? value.text : found->second)});
    }
    return choices;
}

const std::vector<LabelLibrary::Choice>& LabelLibrary::choices(int tagId) const {
    if (choicesTag_ == tagId) return choices_;
    choices_.clear();
    choicesTag_ = tagId;
    const auto tag = record(tagId);
    if (!tag || tag->valueKind != ValueKind::List) return choices_;
    if (const auto facts = files().facts(tag->id)) choices_ = choicesOf(*tag, facts->list, language_);
    return choices_;
}

bool LabelLibrary::CM_xxHasALibelle(int tagId) const {
    const auto tag = record(tagId);
    return tag && files().facts(tag->id);
}

bool LabelLibrary::takesSeveralValues(int tagId) const {
    const auto tag = record(tagId);
    const auto facts = tag ? files().facts(tag->id) : std::nullopt;
    return facts && facts->flags.find(LabelFlag::kSeveralValues) != std::string_view::npos;
}

bool LabelLibrary::keepsLanguages(int tagId) const {
    const auto tag = record(tagId);
    const auto facts = tag ? files().facts(tag->id) : std::nullopt;
    return facts && facts->format == "lang-alt";
}

bool LabelLibrary::holdsText(int tagId) const {
    constexpr std::string_view kNumbers[] = {"int8s",    "int16",   "int32",  "int64",    "integer",
                                             "rational", "float",   "double", "real",     "fixed",
                                             "date",     "boolean", "digits", "unsigned", "extended"};
    const auto tag = record(tagId);
    const auto facts = tag ? files().facts(tag->id) : std::nullopt;
    return facts && tag->valueKind == ValueKind::Text &&
           std::ranges::none_of(kNumbers, [&](auto start) { return facts->format.starts_with(start); });
}

bool LabelLibrary::describesStructure(int tagId) const {
    const auto tag = record(tagId);
    const auto facts = tag ? files().facts(tag->id) : std::nullopt;
    return facts && facts->flags.find(LabelFlag::kUnsafe) != std::string_view::npos;
}

QString LabelLibrary::label(int tagId) const {
    const auto tag = record(tagId);
    return tag ? labelOf(*tag) : QString();
}

bool LabelLibrary::GetHelpFromLibelle(int tagId, QString& help) const {
    const auto tag = record(tagId);
    if (!tag) return false;
    const auto facts = files().facts(tag->id);
    if (!facts) return false;
    HelpFacts given{*tag, *facts, labelOf(*tag), {}, files().list(facts->list).left};
    for (Choice& choice : choicesOf(*tag, facts->list, language_)) {
        given.values.push_back({std::move(choice.code), std::move(choice.text)});
    }
    help = helpText(given, language_);
    return true;
}

int LabelLibrary::GetItemNumberFromCombo(int tagId) const {
    return static_cast<int>(choices(tagId).size());
}

bool LabelLibrary::GetLibelleCombo(int tagId, QString& label, QString& code, int index) const {
    const auto& all = choices(tagId);
    if (index < 0 || static_cast<std::size_t>(index) >= all.size()) return false;
    label = all[static_cast<std::size_t>(index)].text;
    code = all[static_cast<std::size_t>(index)].code;
    return true;
}

QString LabelLibrary::printedText(int tagId, int index) const {
    const auto& all = choices(tagId);
    if (index < 0 || static_cast<std::size_t>(index) >= all.size()) return {};
    return all[static_cast<std::size_t>(index)].english;
}

int LabelLibrary::GetComboIndex(int tagId, QStringView printed) const {
    const QStringView value = printed.trimmed();
    const auto find = [value](const std::vector<Choice>& all, QString Choice::*text,
                              Qt::CaseSensitivity sense) {
        for (std::size_t index = 0; index < all.size(); ++index) {
            if (value.compare(all[index].*text, sense) == 0) return static_cast<int>(index);
        }
        return -1;
    };
    const auto findIn = [&find](const std::vector<Choice>& all) {
        for (const auto sense : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
            for (const auto text : {&Choice::text, &Choice::english}) {
                if (const int index = find(all, text, sense); index >= 0) return index;
            }
        }
        return -1;
    };
    const auto& own = choices(tagId);
    if (own.empty() || value.isEmpty()) return -1;
    if (const int index = findIn(own); index >= 0) return index;
    const auto tag = record(tagId);
    const auto facts = files().facts(tag->id);
    for (std::size_t language = 0; language < kLanguages.size(); ++language) {
        if (language == language_) continue;
        if (const int index = findIn(choicesOf(*tag, facts->list, language)); index >= 0) return index;
    }
    return -1;
}

}  // namespace tags

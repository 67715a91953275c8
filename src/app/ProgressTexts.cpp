#include "app/ProgressTexts.h"

#include "app/LanguageFile.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace app {

namespace {

enum Language { kEnglish, kFrench, kGerman, kSpanish, kLanguageCount };

constexpr int kPrimaryLanguageMask = 0x3FF;

Language languageOf(int number) {
    switch (number & kPrimaryLanguageMask) {
        case 12:
            return kFrench;
        case 7:
            return kGerman;
        case 10:
            return kSpanish;
        default:
            return kEnglish;
    }
}

struct StepTexts {
    ProgressStep step;
    std::array<const char16_t*, kLanguageCount> texts;
};

constexpr StepTexts kSteps[] = {
    {ProgressStep::Initializing,
     {u"Initializing ...", u"Initialisation ...", u"Initialisieren ...", u"Inicializando ..."}},
    {ProgressStep::Reading, {u"Reading ", u"Lecture de ", u"Lesen ", u"Leyendo "}},
    {ProgressStep::ExtractingThumbnail,
     {u"Extracting thumbnail ...", u"Extraction de la vignette ...", u"Miniaturansicht extrahieren ...",
      u"Extrayendo la miniatura ..."}},
    {ProgressStep::Sorting,
     {u"Metadata sorting ...", u"Tri des metadonn\u00E9es ...", u"Sortierung von Metadaten ...",
      u"Clasificaci\u00F3n de matadatos ..."}},
};

constexpr std::array<const char16_t*, kLanguageCount> kClosing = {
    u"Closing after this file ...", u"Fermeture apr\u00E8s ce fichier ...",
    u"Schlie\u00DFen nach dieser Datei ...", u"Cerrando despu\u00E9s de este archivo ..."};

constexpr std::array<const char16_t*, kLanguageCount> kStopWaiting = {
    u"Stop waiting", u"Ne plus attendre", u"Nicht mehr warten", u"No esperar m\u00E1s"};

}  // namespace

QString progressText(int language, ProgressStep step, const QString& fileName) {
    const auto* found = std::ranges::find(kSteps, step, &StepTexts::step);
    QString text = QString::fromUtf16(found->texts[languageOf(language)]);
    if (step == ProgressStep::Reading) text += fileName;
    return text;
}

std::optional<ProgressStep> progressStepOf(int number) {
    const auto* found = std::ranges::find(kSteps, static_cast<ProgressStep>(number), &StepTexts::step);
    return found == std::end(kSteps) ? std::nullopt : std::optional(found->step);
}

QString stopWaitingText(int language) {
    return QString::fromUtf16(kStopWaiting[languageOf(language)]);
}

QString fileCountText(const QString& fileName, std::size_t number, std::size_t count) {
    return formatText(u"%s  (%d / %u)", {fileName, QString::number(number), QString::number(count)});
}

QString languageCode(int language) {
    constexpr std::array<const char16_t*, kLanguageCount> kCodes = {u"en", u"fr", u"de", u"es"};
    return QString::fromUtf16(kCodes[languageOf(language)]);
}

QString closingText(int language) {
    return QString::fromUtf16(kClosing[languageOf(language)]);
}

}  // namespace app

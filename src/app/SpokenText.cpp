#include "app/SpokenText.h"

#include "app/LanguageFile.h"
#include "app/TextKeys.h"

#include <atomic>

namespace app {

namespace {

std::atomic<const LanguageFile*> spoken = nullptr;

}  // namespace

SpokenLanguage::SpokenLanguage(const LanguageFile& language) : before_(spoken.exchange(&language)) {}

SpokenLanguage::~SpokenLanguage() {
    spoken = before_;
}

std::string spokenText(int number, std::initializer_list<QString> values) {
    const LanguageFile* const language = spoken;
    return (language == nullptr ? keyAndValues(number, values) : language->formatted(number, values))
        .toStdString();
}

}  // namespace app

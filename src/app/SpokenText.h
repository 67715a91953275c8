#pragma once

#include <QString>
#include <initializer_list>
#include <string>

namespace app {

class LanguageFile;

/// The language of what is said where no window is at hand: why a tool has not done what it was to do, in the
/// outcome of a file, on whatever thread. A process speaks one; whoever starts it makes this before any other
/// thread and ends it behind them. The file outlives it and is only read.
class SpokenLanguage {
 public:
    explicit SpokenLanguage(const LanguageFile& language);
    ~SpokenLanguage();
    SpokenLanguage(const SpokenLanguage&) = delete;
    SpokenLanguage& operator=(const SpokenLanguage&) = delete;

 private:
    const LanguageFile* before_;
};

/// LanguageFile::formatted() of that language, in UTF-8. Any thread. While there is none, the text's key and
/// the values.
std::string spokenText(int number, std::initializer_list<QString> values = {});

}  // namespace app

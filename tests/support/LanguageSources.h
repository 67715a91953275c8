#pragma once

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>

namespace support {

/// What the English language file is made of, in a folder of its own: texts.ts, menus.xml, ribbon.xml and
/// forms/<number>.ui. A test changes it and packs it as the file of any language.
class LanguageSources {
 public:
    LanguageSources();

    /// A test failure when the file does not hold what is to be replaced.
    void replace(const std::string& name, const std::string& from, const std::string& to) const;
    void remove(const std::string& name) const;
    void add(const std::string& name, const std::string& content) const;

    /// Gives the numbered text, or the text of the forms' context, a translation.
    void translate(int number, const std::string& translation) const;
    void translate(const std::string& context, const std::string& source,
                   const std::string& translation) const;

    /// Writes the language file, with its check sum.
    void pack(const std::filesystem::path& languageFile) const;

 private:
    void translateBehind(const std::string& begin, const std::string& end,
                         const std::string& translation) const;

    TemporaryFolder folder_;
};

}  // namespace support

#pragma once

#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QString>
#include <string>
#include <vector>

namespace endtoend {

/// A test with a folder of its own, which the program is shown.
class PictureFolder : public ::testing::Test {
 protected:
    /// A small JPEG; arguments for ExifTool write its tags.
    void photo(const std::string& name, std::vector<std::string> arguments = {}) {
        support::writeJpeg(folder / name);
        if (arguments.empty()) return;
        arguments.insert(arguments.begin(), {"-q", "-m", "-overwrite_original"});
        arguments.push_back((folder / name).string());
        support::ExifTool(arguments);
    }
    void subfolder(const std::string& name) { std::filesystem::create_directories(folder / name); }

    QString path(const std::string& name = {}) const {
        return QString::fromStdString((name.empty() ? folder.path() : folder / name).string());
    }

    support::TemporaryFolder folder;
};

}  // namespace endtoend

/// Makes GoogleTest show texts as texts.
inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

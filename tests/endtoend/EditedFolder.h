#pragma once

#include "DrivenProgram.h"
#include "PictureFolder.h"
#include "support/WorkingFolder.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace endtoend {

/// A test that changes the files of its folder through the window. The real ExifTool is the judge.
class EditedFolder : public PictureFolder {
 protected:
    /// The numbers that most dialogs share.
    static constexpr int kOk = 1;
    static constexpr int kCancel = 2;
    static constexpr const char* kText = "1694";
    static constexpr const char* kTagList = "1328";

    std::filesystem::path file(const std::string& name) const { return folder / name; }

    /// The value as the file holds it, its numbers behind "#"; empty when it has none.
    std::string held(const std::string& name, const std::string& tag) const {
        return support::ExifTool({"-b", "-" + tag, file(name).string()});
    }

    /// Every tag that the file itself holds, a line each: what no edit of another tag may change.
    std::vector<std::string> tagsOf(const std::string& name) const {
        const std::string printed =
            support::ExifTool({"-a", "-G1", "-s", "-n", "-x", "ExifTool:all", "-x", "System:all", "-x",
                               "File:all", "-x", "Composite:all", file(name).string()});
        std::vector<std::string> lines;
        std::istringstream stream(printed);
        for (std::string line; std::getline(stream, line);) lines.push_back(line);
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// The lines of one list that the other lacks.
    static std::vector<std::string> without(const std::vector<std::string>& lines,
                                            const std::vector<std::string>& others) {
        std::vector<std::string> left;
        std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(),
                            std::back_inserter(left));
        return left;
    }

    /// Where the program keeps the state before the last change.
    static std::filesystem::path safetyCopyOf(const DrivenProgram& program,
                                              const std::filesystem::path& file) {
        return program.install() / "cache/sav" / file.parent_path().relative_path() /
               (file.stem().string() + "-sav" + file.extension().string());
    }

    /// Opens the folder and clicks the file.
    void show(DrivenProgram& program, const QString& name) {
        program.tell("open", {path()});
        program.tell("click", {name});
    }

    /// Presses Tab until the control has the keyboard. False when it is never reached.
    static bool tabTo(DrivenProgram& program, int control) {
        for (int tabs = 0; tabs < 30; ++tabs) {
            if (program.tell("dialog")["focus"].toInt() == control) return true;
            program.tell("key", {"Tab"});
        }
        return false;
    }

    static QJsonObject controlOf(const QJsonObject& dialog, int id) {
        for (const QJsonValue& control : dialog["controls"].toArray())
            if (control["id"].toInt() == id) return control.toObject();
        return {};
    }

    /// Names and bytes of all that stands in the folder.
    std::map<std::string, std::string> contents() const {
        std::map<std::string, std::string> all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
            all[entry.path().string()] = entry.is_regular_file() ? support::readBytes(entry.path()) : "";
        return all;
    }
};

/// A value to write, and what the file has to hold.
inline const std::vector<std::string>& hostileValues() {
    static const std::string owned = support::workingFolder() / "owned";
    static const std::vector<std::string> values = {
        "x\" -if \"system('touch " + owned + "')\" \"",
        "> " + owned,
        "a > " + owned + " 2>>" + owned,
        "\"quoted\" and 'single'",
        "\"",
        "\\\" \\",
        "$(touch " + owned + ") ${PATH} $HOME",
        "`touch " + owned + "`",
        "100%PATH% %% %d %s",
        "a; touch " + owned + " & | < >",
        "-execute",
        "-tagsfromfile /etc/passwd",
        "@/etc/passwd",
        "</etc/passwd",
        "#[CSTR]\\n",
        "  blanks before",
        "M\xC3\xBCller & S\xC3\xB6hne stra\xC3\x9F"
        "e",
        "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E",
        "\xF0\x9F\x93\xB7 emoji \xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x9A\x80",
        "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xD8\xB3\xD9\x84\xD8\xA7\xD9\x85",
        "first\nsecond\n\nfourth",
        "&amp; <b>bold</b> &#10;",
    };
    return values;
}

}  // namespace endtoend

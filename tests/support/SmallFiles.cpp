#include "support/SmallFiles.h"

#include "support/KeptExifTool.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QBuffer>
#include <QImage>

extern char** environ;

namespace support {

void writeJpeg(const std::filesystem::path& file) {
    static const QByteArray bytes = [] {
        QImage image(32, 24, QImage::Format_RGB32);
        image.fill(QColor(40, 90, 160));
        QByteArray encoded;
        QBuffer buffer(&encoded);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "JPEG", 85);
        return encoded;
    }();
    writeBytes(file, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

std::string ExifTool(const std::vector<std::string>& arguments) {
    if (const std::optional<std::string> answer = askKeptExifTool(arguments)) return *answer;
    std::vector<std::string> words{"exiftool"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", 0, 0);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    pid_t child = 0;
    const int failure = posix_spawnp(&child, "exiftool", &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    EXPECT_EQ(failure, 0);
    std::string output;
    char buffer[65536];
    for (ssize_t got = 0; (got = read(ends[0], buffer, sizeof buffer)) > 0;)
        output.append(buffer, static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return output;
}

const std::vector<std::string>& hostileNames() {
    static const std::vector<std::string> names = {
        "plain.jpg",
        "with blank.jpg",
        "two  blanks and 'single'.jpg",
        "double\"quote.jpg",
        "$(touch owned).jpg",
        "`touch owned`.jpg",
        "100%PATH%.jpg",
        "a&b;c|d.jpg",
        "star*?[x].jpg",
        "greater>than 2>>err.jpg",
        "line\nfeed.jpg",
        "tab\tand\rreturn.jpg",
        "-leading hyphen.jpg",
        "-if.jpg",
        "@argfile.jpg",
        "back\\slash.jpg",
        "gr\xC3\xBC\xC3\x9F"
        "e \xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E \xF0\x9F\x93\xB7.jpg",
        "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D.jpg",
        "latin1 \xE9\xFC.jpg",
        "{curly} #hash =equals.jpg",
    };
    return names;
}

}  // namespace support

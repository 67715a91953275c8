#include "platform/ProgramSearch.h"
#include "platform/Text.h"
#include "properties/PropertyStore.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <cmath>

// Values of films and sound beside those that FFprobe gives for the same files, which FFmpeg has made.

namespace {

namespace fs = std::filesystem;
using properties::PropertyStore;
using properties::PropertyValue;
using Id = properties::PropertyId;

/// `untold` are FFprobe's names of what the library does not find in files of this kind.
struct Container {
    const char* file;
    const char* codecs;
    const char* untold = "";
};

constexpr Container kContainers[] = {
    {"a.mp4", "-c:v mpeg4 -c:a aac"},
    {"a.mov", "-c:v mpeg4 -c:a pcm_s16le"},
    {"a.mkv", "-c:v mpeg4 -c:a flac"},
    {"a.avi", "-c:v mpeg4 -c:a libmp3lame"},
    {"a.wmv", "-c:v wmv2 -c:a wmav2"},
    {"a.ogv", "-c:v libtheora -c:a libvorbis"},
    // Of the tags that FFmpeg alone writes.
    {"a.flv", "-c:v flv -c:a libmp3lame", "artist album genre date title"},
    // One second of such a stream is too short to be sure of its sound.
    {"a.ts", "-c:v mpeg2video -c:a mp2", "channels sample_rate duration bit_rate"},
    {"a.mpg", "-c:v mpeg1video -c:a mp2"},
    {"a.mxf", "-c:v mpeg2video -c:a pcm_s16le -ar 48000"},
    {"a.m4a", "-vn -c:a aac"},
    {"b.m4a", "-vn -c:a alac"},
    {"a.mp3", "-vn -c:a libmp3lame"},
    {"a.flac", "-vn -c:a flac"},
    {"a.ogg", "-vn -c:a libvorbis"},
    {"a.opus", "-vn -c:a libopus"},
    {"a.wav", "-vn -c:a pcm_s24le"},
    {"a.au", "-vn -c:a pcm_s16be", "title artist album genre date"},
    {"a.aiff", "-vn -c:a pcm_s16be -write_id3v2 1"},
    {"a.wma", "-vn -c:a wmav2"},
    {"a.wv", "-vn -c:a wavpack"},
    {"a.tta", "-vn -c:a tta"},
};

enum class Part { Format, Video, Audio, Tags };

struct Check {
    Id property;
    Part part;
    const char* name;
    double tolerance = 0;
};

constexpr Check kChecks[] = {
    {Id::MediaDuration, Part::Format, "duration", 0.06},
    {Id::VideoTotalBitrate, Part::Format, "bit_rate", 0.06},
    {Id::MediaFrameCount, Part::Video, "nb_frames"},
    {Id::VideoFrameWidth, Part::Video, "width"},
    {Id::VideoFrameHeight, Part::Video, "height"},
    {Id::VideoFrameRate, Part::Video, "avg_frame_rate", 0.001},
    {Id::VideoFourCC, Part::Video, "codec_tag_string"},
    {Id::VideoHorizontalAspectRatio, Part::Video, "sample_aspect_ratio"},
    {Id::AudioChannelCount, Part::Audio, "channels"},
    {Id::AudioSampleRate, Part::Audio, "sample_rate"},
    {Id::AudioSampleSize, Part::Audio, "bits_per_raw_sample"},
    {Id::AudioSampleSize, Part::Audio, "bits_per_sample"},
    {Id::SummaryTitle, Part::Tags, "title"},
    {Id::MusicArtist, Part::Tags, "artist"},
    {Id::MusicAlbumTitle, Part::Tags, "album"},
    {Id::MusicGenre, Part::Tags, "genre"},
    {Id::MediaYear, Part::Tags, "date"},
};

QByteArray outputOf(const fs::path& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(platform::display(program), arguments);
    EXPECT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitCode(), 0) << arguments.join(u' ').toStdString();
    return process.readAllStandardOutput();
}

void makeFiles(const fs::path& folder, const fs::path& ffmpeg) {
    QStringList words = QStringLiteral(
                            "-v error -y -f lavfi -i testsrc=size=96x64:rate=25:duration=2 -f lavfi -i "
                            "sine=sample_rate=44100:duration=2 -metadata title=x")
                            .split(u' ');
    words.resize(words.size() - 2);
    for (const Container& container : kContainers) {
        const QString codecs = QString::fromLatin1(container.codecs);
        if (!codecs.contains(u"-vn")) words += {QStringLiteral("-vf"), QStringLiteral("setsar=4/3")};
        for (const char* tag : {"title=Größe", "artist=Ann", "album=Alb", "genre=Rock", "date=2019"})
            words += {QStringLiteral("-metadata"), QString::fromUtf8(tag)};
        words += codecs.split(u' ');
        words += platform::display(folder / container.file);
    }
    outputOf(ffmpeg, words);
}

/// What FFprobe says of one thing, empty for what it does not know.
class Judge {
 public:
    explicit Judge(const QByteArray& json) : all_(QJsonDocument::fromJson(json).object()) {
        for (const QJsonValue& stream : all_["streams"].toArray()) {
            QJsonObject& place = stream["codec_type"].toString() == u"video" ? video_ : audio_;
            if (place.isEmpty()) place = stream.toObject();
        }
    }

    QString says(Part part, const char* name) const {
        const QLatin1StringView key(name);
        if (part == Part::Format) {
            // Of sound the library tells the rate without what wraps it.
            const bool isRate = key == QLatin1StringView("bit_rate");
            return isRate && video_.isEmpty() ? QString() : text(all_["format"].toObject()[key]);
        }
        if (part == Part::Video) return text(video_[key]);
        if (part == Part::Audio) return text(audio_[key]);
        for (const QJsonValue& tags : {all_["format"]["tags"], audio_["tags"], video_["tags"]})
            for (const QString& tag : tags.toObject().keys())
                if (tag.toLower() == key) return text(tags.toObject()[tag]);
        return {};
    }

 private:
    static QString text(const QJsonValue& value) {
        const QString said = value.toVariant().toString();
        const bool isNothing = said == u"0" || said == u"0/0" || said == u"N/A" || said.startsWith(u'[') ||
                               said.endsWith(u"[0]");
        return isNothing ? QString() : said;
    }

    QJsonObject all_;
    QJsonObject video_;
    QJsonObject audio_;
};

double numberOf(const PropertyValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return static_cast<double>(*number);
    if (const auto* number = std::get_if<double>(&value)) return *number;
    return std::nan("");
}

void expectSame(PropertyStore& store, const Check& check, const QString& said) {
    const PropertyValue& value = store.get(check.property);
    if (const auto* list = std::get_if<QStringList>(&value)) {
        EXPECT_EQ(list->join(u';').toStdString(), said.toStdString());
    } else if (const auto* text = std::get_if<QString>(&value)) {
        EXPECT_EQ(text->toStdString(), said.toStdString());
    } else if (check.property == Id::VideoHorizontalAspectRatio) {
        const double vertical = numberOf(store.get(Id::VideoVerticalAspectRatio));
        EXPECT_NEAR(numberOf(value) / vertical,
                    said.section(u':', 0, 0).toDouble() / said.section(u':', 1).toDouble(), 0.001);
    } else {
        const QStringList parts = said.split(u'/');
        double number = parts.front().toDouble();
        if (check.property == Id::VideoFrameRate) number /= parts.back().toDouble();
        if (check.property == Id::MediaDuration) number *= 1e7;
        EXPECT_NEAR(numberOf(value), number, number * check.tolerance);
    }
}

TEST(StreamAgreement, ValuesAreThoseOfFfprobe) {
    const fs::path ffmpeg = platform::findProgram("ffmpeg");
    const fs::path ffprobe = platform::findProgram("ffprobe");
    ASSERT_FALSE(ffmpeg.empty() || ffprobe.empty()) << "FFmpeg and FFprobe are not installed";
    const support::TemporaryFolder folder;
    makeFiles(folder.path(), ffmpeg);
    int compared = 0;
    for (const Container& container : kContainers) {
        const fs::path file = folder / container.file;
        const Judge judge(outputOf(ffprobe, {"-v", "error", "-of", "json", "-show_format", "-show_streams",
                                             platform::display(file)}));
        PropertyStore store(file);
        const QStringList untold = QString::fromLatin1(container.untold).split(u' ');
        for (const Check& check : kChecks) {
            const QString said = judge.says(check.part, check.name);
            if (said.isEmpty() || untold.contains(QLatin1StringView(check.name))) continue;
            SCOPED_TRACE(std::string(container.file) + " " + check.name);
            expectSame(store, check, said);
            ++compared;
        }
    }
    EXPECT_GT(compared, 200);
}

}  // namespace

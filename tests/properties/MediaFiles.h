#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

/// Small sound and film files, made byte by byte.
namespace support {

using Texts = std::vector<std::pair<std::string, std::string>>;

/// A second of silence: one channel, 8000 samples of 16 bits.
void writeWave(const std::filesystem::path& file);

/// Two seconds of silence in the format of Sun: one channel, 8000 samples of 16 bits.
void writeSunSound(const std::filesystem::path& file);

/// A FLAC file of its headers only: 44100 Hz, two channels, 16 bits, ten seconds, with tags.
void writeFlac(const std::filesystem::path& file);
/// The same with these tags.
void writeFlac(const std::filesystem::path& file, const Texts& tags);

/// A PNG file of one grey point.
void writePng(const std::filesystem::path& file);

/// Eight frames of MPEG layer 3, 128 kbps, 44100 Hz, stereo.
void writeMp3(const std::filesystem::path& file);

/// An MP4 file with one video track of 320 by 240 points, two seconds long, without any frame in it.
void writeMp4(const std::filesystem::path& file);
/// The same with texts in the encoding of the old Macintosh, by the four bytes of their atoms.
void writeMacintoshMovie(const std::filesystem::path& file, const Texts& texts);

/// A Matroska file with one video track, without any frame in it, and tags by their names.
void writeMatroska(const std::filesystem::path& file, const Texts& tags);

/// An AVI file of one video track, without any frame in it: what its date chunk says, its artist, and a note
/// in XMP if one is given.
void writeAvi(const std::filesystem::path& file, const std::string& date, const std::string& artist,
              const std::string& note = {});

/// The head of a Windows Media file with attributes: texts by their names, and the names of those that are
/// true.
void writeWindowsMedia(const std::filesystem::path& file, const Texts& texts,
                       const std::vector<std::string>& truths);

/// The first two packets of an Ogg film: what it is, and its comments.
void writeOggFilm(const std::filesystem::path& file, const Texts& tags);

/// The head of a Musepack file behind a tag of MP3 files, and with one of its own kind at the end.
void writeMusepack(const std::filesystem::path& file, const std::string& composer, const std::string& title);

/// A RAF file around a photo, with a raw picture that is said to be so large.
void writeRaf(const std::filesystem::path& file, const std::string& photo, int width, int height);

/// An archive whose parts are not compressed, by their names.
void writeArchive(const std::filesystem::path& file, const Texts& parts);

}  // namespace support

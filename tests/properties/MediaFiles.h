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

/// An AVI file of one video track, without any frame in it: what its date chunk says, and its artist.
void writeAvi(const std::filesystem::path& file, const std::string& date, const std::string& artist);

/// An archive whose parts are not compressed, by their names.
void writeArchive(const std::filesystem::path& file, const Texts& parts);

}  // namespace support

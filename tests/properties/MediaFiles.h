#pragma once

#include <filesystem>
#include <string>

/// Small sound and film files, made byte by byte.
namespace support {

/// A second of silence: one channel, 8000 samples of 16 bits.
void writeWave(const std::filesystem::path& file);

/// A FLAC file of its headers only: 44100 Hz, two channels, 16 bits, ten seconds, with tags.
void writeFlac(const std::filesystem::path& file);

/// Eight frames of MPEG layer 3, 128 kbps, 44100 Hz, stereo.
void writeMp3(const std::filesystem::path& file);

/// An MP4 file with one video track of 320 by 240 points, two seconds long, without any frame in it.
void writeMp4(const std::filesystem::path& file);

}  // namespace support

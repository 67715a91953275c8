#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace bench {

/// Starts the program that the first word names, with its output and errors in the files, errors without one
/// being lost, and waits for its end: nothing but posix_spawn and waitpid, as the yardstick of a run must not
/// carry any machinery of ours. The exit status; throws std::runtime_error when it cannot be started or is
/// killed.
int runPlainly(const std::vector<std::string>& words, const std::filesystem::path& outputFile,
               const std::filesystem::path& errorFile = {});

/// What a measuring program printed: lines of a name, a blank and a number.
using Measurements = std::map<std::string, double>;

/// Runs a measuring program of the folder of this one. Throws std::runtime_error when it fails. The clock is
/// read just before the start of the program and goes into the measurements as "spawned".
Measurements runMeasuringProgram(const std::string& name, const std::vector<std::string>& arguments);

/// Seconds of the clock that all programs of one machine share.
double monotonicSeconds();

/// One line for runMeasuringProgram's reader.
void printMeasurement(const char* name, double value);

}  // namespace bench

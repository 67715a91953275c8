#pragma once

#include <string>

namespace support {

/// The zone of this process while the object lives.
class LocalZone {
 public:
    explicit LocalZone(const char* zone);
    ~LocalZone();
    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;

 private:
    bool wasSet_ = false;
    std::string before_;
};

}  // namespace support

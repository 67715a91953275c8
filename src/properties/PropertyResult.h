#pragma once

#include <QString>
#include <cstdint>

namespace properties {

/// How a write of a property ended. The numbers are the result codes that the messages are bound to.
enum class [[nodiscard]] PropertyResult : std::uint32_t{
    Ok = 0,
    Failed = 0x80004005,
    OutOfMemory = 0x8007000E,
    DiskFull = 0x80070070,
    InvalidArguments = 0x80070057,  ///< no value given
    AccessDenied = 0x80030005,      ///< the file or its folder cannot be written, or is no regular file
    InvalidParameter = 0x80030057,  ///< the text cannot be read as a value of this property
    ChangedMeanwhile = 0x80030021,  ///< another program wrote the file since it was opened; it was left alone
    NotSupported = 0x88982F41,      ///< files of this kind cannot hold the property
    TypeMismatch = 0x80028CA0       ///< a value of a type that the property does not take
};

/// What the user is told; empty for the codes that are passed on in silence.
QString propertyResultMessage(PropertyResult result);

}  // namespace properties

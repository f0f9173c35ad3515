#pragma once

#include <cstdint>
#include <streambuf>
#include <string>
#include <string_view>

#include <oa/oaDesignDB.h>

namespace pcellBrokerClient {

/// The first byte of each request.
enum class Command : unsigned char {
    liveness = 0,
    setWorkingDirectory = 1,
    setLibraryDefinitions = 2,
    canEvaluate = 3,
    evaluate = 4,
};

/// What a broker answers to show that it is there.
inline constexpr unsigned char livenessAnswer = ':';

/// The longest text that is taken from a broker. What does not end before is not an answer.
inline constexpr std::size_t longestText = std::size_t{16} << 20;

/// The writers put their bytes into a stream, which sends them when it is flushed.
/// @throws std::ios_base::failure  the stream takes no more.
void writeByte(std::streambuf& stream, unsigned char value);
void writeCommand(std::streambuf& stream, Command command);
void writeInteger(std::streambuf& stream, std::int32_t value);

/// Writes the characters up to the first zero byte, and a zero byte.
void writeText(std::streambuf& stream, const char* text);

/// @throws std::runtime_error  a parameter is of a kind that cannot be sent; its name and kind
///                             have been written.
void writeParamArray(std::streambuf& stream, const oa::oaParamArray& params);

/// Writes the value of a parameter of the kind `type`.
void writeParamValue(std::streambuf& stream, oa::oaUInt4 type, const oa::oaParam& param);

/// @throws std::runtime_error  the stream could not be flushed.
void flush(std::streambuf& stream);

/// @throws std::ios_base::failure  the stream has ended.
unsigned char readByte(std::streambuf& stream);

/// Reads up to and without the next zero byte.
/// @throws std::ios_base::failure  the stream has ended, or the text is too long.
std::string readText(std::streambuf& stream);

} // namespace pcellBrokerClient

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace conformance {

/// A text as it travels: its bytes and a zero byte.
std::string text(std::string_view value);
/// 32 bits, little-endian.
std::string integer(std::int32_t value);
std::string real(float value);
std::string real(double value);
/// 64 bits, little-endian.
std::string time(std::int64_t value);

/// The requests of a host, byte for byte.
std::string liveness();
std::string setWorkingDirectory(std::string_view path);
std::string setLibraryDefinitions(std::string_view path);
std::string canEvaluate(std::string_view pcellType);

/// An evaluation without its parameters: their number, as an integer, and they themselves follow.
std::string evaluate(std::string_view library, std::string_view cell, std::string_view view);

std::string integerParameter(std::string_view name, std::int32_t value);
std::string floatParameter(std::string_view name, float value);
std::string textParameter(std::string_view name, std::string_view value);
std::string applicationParameter(std::string_view name, std::string_view type,
                                 std::string_view bytes);
std::string doubleParameter(std::string_view name, double value);
std::string booleanParameter(std::string_view name, bool value);
std::string timeParameter(std::string_view name, std::int64_t value);

} // namespace conformance

// Single-byte Windows-1252 text: conversion to and from UTF-8, trimming and lower case.
#pragma once

#include <string>
#include <string_view>

namespace vorna {

// The core keeps every text as Windows-1252 bytes, exactly as the suite's files hold them.
std::string Cp1252ToUtf8(std::string_view text);
// Characters that Windows-1252 cannot hold become "?". A byte that is not part of a well-formed
// UTF-8 sequence is taken as Windows-1252 itself ("?" for the five bytes without a character),
// so that Latin-1 text passes through and takes no character next to it with it.
std::string Utf8ToCp1252(std::string_view text);

std::string Trim(std::string_view text);
std::string TrimLeft(std::string_view text);
std::string TrimRight(std::string_view text);
// Lower and upper case of Windows-1252 letters, accented ones included.
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);

} // namespace vorna

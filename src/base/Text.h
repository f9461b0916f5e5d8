#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Text functions of the platform over UTF-8: lengths and positions count characters, not bytes. A byte that
// is no valid UTF-8 counts as one character.
namespace zelkor {

std::size_t Len(std::string_view text);
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);
/// From the character `start` on (1 is the first; 0 is error 5), at most `count` characters.
std::string Mid(std::string_view text, std::size_t start, std::size_t count = std::string::npos);

/// The platform's trimming takes blanks alone, no tabs and no line breaks.
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);

/// Case of ASCII and Latin-1 letters; other characters stay.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

/// Capitals of ASCII become small letters; other characters stay.
constexpr char asciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
std::string asciiLower(std::string_view text);

/// Equal but for the case of ASCII letters: how names of tables, columns and files are compared.
bool equalsIgnoringCase(std::string_view left, std::string_view right);

bool isValidUtf8(std::string_view text);

/// The pieces between separators; one piece where there is none, none for the empty text.
std::vector<std::string> Split(std::string_view text, char separator);

/// Columns that the text takes in a terminal: East Asian wide and full-width characters two, others one.
std::size_t displayWidth(std::string_view text);

}  // namespace zelkor

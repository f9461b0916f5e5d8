#pragma once

#include <string>
#include <string_view>

namespace zelkor {

/// Bytes as a PostgreSQL server reads and writes them in a text: "\\x" and two hexadecimal digits for each.
std::string byteaText(std::string_view bytes);
/// The bytes of such a text; of any other text its own.
std::string bytesOfBytea(std::string_view text);

}  // namespace zelkor

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zelkor::dialect {

/// What is wrong with a statement, in the distinctions of the engine's messages.
enum class SyntaxFault : std::uint8_t { Syntax, MissingOperator, Text, Date, BehindEnd };

/// Raises error 3134 for an INSERT statement and 3075 for any other, with the offending piece in the text. Of
/// a long piece only the neighbourhood of the fault, at byte `at` of the piece, is shown.
[[noreturn]] void raiseSyntaxError(std::string_view statement, SyntaxFault fault, std::string_view piece,
                                   std::size_t at);

}  // namespace zelkor::dialect

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/DateTime.h"
#include "base/Decimal.h"

// The parts that Format is put together from.
namespace zelkor {

/// A number under a picture of up to three sections (positive; negative; zero).
std::string formatNumber(const Decimal& value, std::string_view picture);

/// A number with exactly `places` decimals, as "0.00" shows it.
std::string formatFixed(const Decimal& value, int places);

/// A point in time under a date picture.
std::string formatDate(DateTime date, std::string_view picture);

/// The sections of a picture: cut at semicolons outside quotes and not behind a backslash.
std::vector<std::string_view> pictureSections(std::string_view picture);

/// Length of the literal at the start of `picture` ("..." or \x), 0 where there is none. Its text without the
/// marks is appended to `literal`.
std::size_t takeLiteral(std::string_view picture, std::string& literal);

}  // namespace zelkor

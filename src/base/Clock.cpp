#include "base/Clock.h"

#include <ctime>

namespace zelkor {

DateTime SystemClock::now() const {
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  // A leap second has no place in the platform's calendar.
  const int second = local.tm_sec > 59 ? 59 : local.tm_sec;
  return DateTime::fromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                             local.tm_min, second)
      .value();
}

}  // namespace zelkor

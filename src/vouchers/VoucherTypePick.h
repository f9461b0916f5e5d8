#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/DateTime.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The voucher types as a person picks from them: sign, two blanks, name, by their sequence.
std::vector<std::string> voucherTypeList(Database& data);

/// What the choice of a voucher type gives.
struct PickedVoucherType {
  std::string sign;
  std::string name;
  std::int16_t isignseq = 0;  // the type's place in the sequence
  std::int16_t nextNumber = 1;
};

/// The type of a list entry, with the number that its next voucher gets in the month of `date`.
PickedVoucherType pickVoucherType(Database& data, std::string_view entry, DateTime date);

}  // namespace zelkor

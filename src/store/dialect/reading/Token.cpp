#include "store/dialect/reading/Token.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"

namespace zelkor::dialect {
namespace {

using Entry = std::pair<std::string_view, Keyword>;

constexpr std::array kKeywords{Entry{"all", Keyword::All},
                               Entry{"alter", Keyword::Alter},
                               Entry{"and", Keyword::And},
                               Entry{"any", Keyword::Any},
                               Entry{"as", Keyword::As},
                               Entry{"asc", Keyword::Asc},
                               Entry{"between", Keyword::Between},
                               Entry{"by", Keyword::By},
                               Entry{"create", Keyword::Create},
                               Entry{"delete", Keyword::Delete},
                               Entry{"desc", Keyword::Desc},
                               Entry{"distinct", Keyword::Distinct},
                               Entry{"distinctrow", Keyword::DistinctRow},
                               Entry{"drop", Keyword::Drop},
                               Entry{"eqv", Keyword::Eqv},
                               Entry{"exists", Keyword::Exists},
                               Entry{"false", Keyword::False},
                               Entry{"from", Keyword::From},
                               Entry{"group", Keyword::Group},
                               Entry{"having", Keyword::Having},
                               Entry{"imp", Keyword::Imp},
                               Entry{"in", Keyword::In},
                               Entry{"inner", Keyword::Inner},
                               Entry{"insert", Keyword::Insert},
                               Entry{"into", Keyword::Into},
                               Entry{"is", Keyword::Is},
                               Entry{"join", Keyword::Join},
                               Entry{"left", Keyword::Left},
                               Entry{"like", Keyword::Like},
                               Entry{"mod", Keyword::Mod},
                               Entry{"not", Keyword::Not},
                               Entry{"null", Keyword::Null},
                               Entry{"on", Keyword::On},
                               Entry{"or", Keyword::Or},
                               Entry{"order", Keyword::Order},
                               Entry{"right", Keyword::Right},
                               Entry{"select", Keyword::Select},
                               Entry{"set", Keyword::Set},
                               Entry{"some", Keyword::Some},
                               Entry{"top", Keyword::Top},
                               Entry{"true", Keyword::True},
                               Entry{"union", Keyword::Union},
                               Entry{"update", Keyword::Update},
                               Entry{"values", Keyword::Values},
                               Entry{"where", Keyword::Where},
                               Entry{"with", Keyword::With},
                               Entry{"xor", Keyword::Xor}};

static_assert(std::is_sorted(kKeywords.begin(), kKeywords.end(),
                             [](const Entry& a, const Entry& b) { return a.first < b.first; }));

constexpr std::size_t kLongestKeyword = 11;

}  // namespace

Keyword keywordOf(std::string_view word) {
  if (word.size() > kLongestKeyword) return Keyword::None;
  std::array<char, kLongestKeyword> buffer{};
  for (std::size_t i = 0; i < word.size(); ++i) buffer[i] = asciiLower(word[i]);
  const std::string_view lower(buffer.data(), word.size());
  const auto* found =
      std::lower_bound(kKeywords.begin(), kKeywords.end(), lower,
                       [](const Entry& entry, std::string_view w) { return entry.first < w; });
  return found != kKeywords.end() && found->first == lower ? found->second : Keyword::None;
}

}  // namespace zelkor::dialect

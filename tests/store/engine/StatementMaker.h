#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor::test {

/// Makes statements about the tables p (id, sT, sU, iK, lN, dblN, mN, dN, bN) and q (id, sT, lN, mN), the
/// same ones for the same seed. At most one place of a statement can fail, so that it tells nothing in which
/// order an engine gets there.
class StatementMaker {
 public:
  explicit StatementMaker(std::uint32_t seed) : random_(seed) {}

  std::string query();
  std::string action();

 private:
  std::string pick(const std::vector<std::string>& choices) { return choices[below(choices.size())]; }
  std::size_t below(std::size_t end) { return random_() % end; }

  std::string textLiteral();
  std::string pattern();
  std::string text(int depth);
  std::string number(int depth);
  std::string date(int depth);
  std::string condition(int depth);
  /// An expression that may fail.
  std::string risky();
  std::string any(int depth);

  std::mt19937 random_;
};

}  // namespace zelkor::test

#include "depreciation/MonthlyDepr.h"

#include <optional>
#include <string_view>

#include "base/Conversion.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr std::string_view kSumOfYearsDigits = "5";

/// A number of the platform's variant arithmetic, which works in doubles and in which Null goes through every
/// operation.
class Operand {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): numbers appear bare in the formulas
  Operand(double number) : number_(number) {}
  explicit Operand(const Value& value) {
    if (!value.isNull()) number_ = value.number();
  }

  bool isNull() const { return !number_; }
  bool isZero() const { return number_ && *number_ == 0; }

  friend Operand operator+(Operand a, Operand b) {
    return combine(a, b, [](double x, double y) { return x + y; });
  }
  friend Operand operator-(Operand a, Operand b) {
    return combine(a, b, [](double x, double y) { return x - y; });
  }
  friend Operand operator*(Operand a, Operand b) {
    return combine(a, b, [](double x, double y) { return x * y; });
  }
  friend Operand operator/(Operand a, Operand b) {
    return combine(a, b, [](double x, double y) {
      if (y == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
      return x / y;
    });
  }

  Currency toCurrency() const { return CCur(value()); }
  double toInteger16() const { return CInt(value()); }

 private:
  Operand() = default;
  template <typename Operation>
  static Operand combine(Operand a, Operand b, Operation operation) {
    if (a.isNull() || b.isNull()) return {};
    return operation(*a.number_, *b.number_);
  }
  Value value() const { return number_ ? Value(*number_) : Value(); }

  std::optional<double> number_;
};

MonthlyDepr straightLine(const DeprBasis& basis) {
  const Operand life(basis.lLife);
  if (life.isNull() || life.isZero()) return {};
  const Currency rate = ((1 - Operand(basis.dblBVRate)) / life).toCurrency();
  return {rate, (Operand(basis.dblValue) * rate.toDouble()).toCurrency()};
}

MonthlyDepr sumOfYearsDigits(const DeprBasis& basis) {
  const Operand life(basis.lLife);
  const Operand years = (life / 12).toInteger16();
  const Operand digits = (years * (years + 1) / 2).toInteger16();
  const Currency rate = ((life - Operand(basis.lUsedMonths)) / (digits * life)).toCurrency();
  return {rate, ((Operand(basis.dblValue) - Operand(basis.dblBV)) * rate.toDouble()).toCurrency()};
}

}  // namespace

MonthlyDepr monthlyDepr(const DeprBasis& basis) {
  const std::string method = basis.sDeprMethodID.textOrEmpty();
  if (method == "2" || method == "3" || method == "6") return straightLine(basis);
  if (method == kSumOfYearsDigits) return sumOfYearsDigits(basis);
  return {};
}

Currency ledgerAmount(Currency amount) {
  constexpr std::int64_t kCent = 100;  // ten-thousandths
  const std::int64_t half = amount < Currency() ? -kCent / 2 : kCent / 2;
  return Currency::fromScaled((amount + Currency::fromScaled(half)).scaled() / kCent * kCent);
}

bool countsUsedMonths(const DeprBasis& basis) {
  return basis.sDeprMethodID.textOrEmpty() == kSumOfYearsDigits;
}

}  // namespace zelkor

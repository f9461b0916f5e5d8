#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "base/Currency.h"
#include "base/DecimalSum.h"
#include "base/RuntimeError.h"
#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {
namespace {

using enum ColumnType;

// Amounts are added as ten-thousandths, so that no binary fraction creeps into a total.
class AmountTotal : public RowGathering {
 public:
  void add(const Value& value) override { addNumber(value.as<double>()); }
  void addNumber(double number) override {
    const double scaled = std::nearbyint(number * 10000);
    if (!(std::abs(scaled) < 9.2e18)) throw RuntimeError(ErrorNumber::Overflow);
    total_ += zelkor::Currency::fromScaled(static_cast<std::int64_t>(scaled));
    ++count_;
  }
  Value result() const override { return count_ == 0 ? Value() : Value(total_); }

 protected:
  zelkor::Currency total_;
  std::int64_t count_ = 0;
};

class AmountAverage final : public AmountTotal {
 public:
  Value result() const override {
    if (count_ == 0) return {};
    const double scaled = static_cast<double>(total_.scaled()) / static_cast<double>(count_);
    return std::nearbyint(scaled) / 10000;
  }
};

class Total : public RowGathering {
 public:
  void add(const Value& value) override { addNumber(value.as<double>()); }
  void addNumber(double number) override {
    sum_.add(number);
    ++count_;
  }
  Value result() const override { return count_ == 0 ? Value() : Value(sum_.total()); }

 protected:
  DecimalSum sum_;
  std::int64_t count_ = 0;
};

class Average final : public Total {
 public:
  Value result() const override { return count_ == 0 ? Value() : Value(sum_.dividedBy(count_)); }
};

// Rows come to a file's functions as its engine finds them.
template <bool isLast>
class OutermostValue final : public RowGathering {
 public:
  void standAt(std::vector<std::int64_t> place) override { next_ = std::move(place); }
  void add(const Value& value) override {
    if (given_ && (isLast ? next_ < place_ : place_ <= next_)) return;
    value_ = value;
    place_ = next_;
    given_ = true;
  }
  Value result() const override { return value_; }

 private:
  Value value_;
  bool given_ = false;
  std::vector<std::int64_t> place_;
  std::vector<std::int64_t> next_;
};

template <typename Gathering>
std::unique_ptr<RowGathering> gathering() {
  return std::make_unique<Gathering>();
}

constexpr SqlFunction aggregate(std::string_view name, std::string_view arguments, ColumnType result,
                                std::string_view called, std::string_view onServer, std::string_view meaning,
                                std::unique_ptr<RowGathering> (*inFile)() = nullptr) {
  return {name, arguments, result, called, nullptr, onServer, meaning, nullptr, inFile};
}

constexpr std::array kRows{
    aggregate("Count", "v", Long, "count", "count(!?)", "how many rows, or rows where it is not Null"),
    aggregate("Sum", "n", Double, "sum", "sum(!?)", "the total"),
    aggregate("Avg", "n", Double, "avg", "avg(!?)", "the average"),
    aggregate("Min", "o", Unknown, "min", "min(!?)", "the least value"),
    aggregate("Max", "o", Unknown, "max", "max(!?)", "the greatest value"),
    aggregate("First", "v", Unknown, "zk_first", "(array_agg(?^))[1]", "the value of the first row",
              gathering<OutermostValue<false>>),
    aggregate("Last", "v", Unknown, "zk_last", "(array_agg(?^))[count(*)]", "the value of the last row",
              gathering<OutermostValue<true>>),
    aggregate("", "n", Double, "zk_sum", "zk_total(sum(!zk_amount(?)), sum(!zk_rest(?)))::double precision",
              "", gathering<Total>),
    aggregate("", "n", Double, "zk_avg",
              "zk_average(zk_total(sum(!zk_amount(?)), sum(!zk_rest(?))), count(!?))", "",
              gathering<Average>),
    // Numbers of fixed point are added exactly on a server.
    aggregate("", "n", Currency, "zk_sum_currency", "sum(!?)", "", gathering<AmountTotal>),
    aggregate("", "n", Currency, "zk_avg_currency", "avg(!?)", "", gathering<AmountAverage>),
};

}  // namespace

std::span<const SqlFunction> aggregateFunctions() {
  return kRows;
}

}  // namespace zelkor::dialect

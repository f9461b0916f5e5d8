#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "startup/BusinessClass.h"

namespace zelkor {

/// A department as the screen holds it. An empty person, property, phone, address or memo is stored as Null.
struct DepartRecord {
  std::string code = {};
  std::string name = {};
  std::string person = {};  // code of the person in charge
  std::string property = {};
  std::string phone = {};
  std::string address = {};
  std::string memo = {};
  int level = 1;
};

enum class DepartSaving { Existing, New };

/// The suite's department archive. Recordsets that could not be opened come back closed.
class ClsBLLDepart : public BusinessClass {
 public:
  explicit ClsBLLDepart(DbEngine& engine) : BusinessClass(engine, "ClsBLLDepart.") {}

  Recordset TopDepartInfo();
  /// Departments of the level whose codes begin with `code`.
  Recordset GetDepartsInfo(std::string_view code, int level);
  /// The same for each code; see BusinessClass::eachQuery.
  void GetDepartsInfo(std::span<const std::string> codes, int level, const UseOfRows& use);
  Recordset GetDepartDetail(std::string_view code);
  bool DeleteDepart(std::string_view code);
  /// False when an existing department is not there, when a new one's code is taken, or on any failure.
  bool UpdateDepart(const DepartRecord& depart, DepartSaving saving);
  /// The coding rule as a pattern of stars. `lastLength` becomes the length of the last level's part, which
  /// callers take for the number of levels; it keeps its value when the rule has no digit.
  std::string GetDepartCodingRule(std::int32_t& lastLength);
  std::string GetPersonName(std::string_view personCode);
  /// Every person with the name of the department.
  Recordset GetAllPersons();

 private:
  void storeDepart(Recordset& row, const DepartRecord& depart);
};

}  // namespace zelkor

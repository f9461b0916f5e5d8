#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/TextGrid.h"
#include "store/engine/Database.h"

namespace zelkor {

/// A common digest of vouchers.
struct Digest {
  std::string code;
  std::string text;
  std::string subject;  // code of the related subject; may be empty

  bool isEmpty() const { return code.empty() && text.empty() && subject.empty(); }
};

/// Why a digest is not stored.
enum class DigestRefusal { NewWithoutCode, NewCodeTaken, CodeTaken, WithoutText, UnknownSubject };

/// What a person reads of it.
std::string_view messageOf(DigestRefusal refusal);

/// The common digests of a database, on a recordset that stays open.
class Digests {
 public:
  explicit Digests(const Database& data);

  /// Code, text and related subject under one header row, by code.
  TextGrid grid();

  std::optional<DigestRefusal> refusalOfNew(const Digest& digest);
  /// Checks and adds a digest; nothing is stored when it is refused.
  std::optional<DigestRefusal> add(const Digest& digest);
  /// Checks and rewrites the digest that has had the code `storedCode`. Without a related subject the stored
  /// one stays.
  std::optional<DigestRefusal> UpdateDigest(std::string_view storedCode, const Digest& digest);
  /// Deletes the digest with that code, if there is one.
  void remove(std::string_view code);

 private:
  bool hasCode(std::string_view code);
  bool IsExistCode(std::string_view subject);

  Database data_;
  Recordset digests_;
};

}  // namespace zelkor

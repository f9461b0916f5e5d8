#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zelkor::test {

enum class JetVersion : std::uint8_t { Jet3, Jet4 };

/// The column types by the numbers that are in the file.
enum class JetType : std::uint8_t {
  Boolean = 1,
  Byte = 2,
  Short = 3,
  Long = 4,
  Money = 5,
  Single = 6,
  Double = 7,
  Date = 8,
  Binary = 9,
  Text = 10,
  Ole = 11,
  Memo = 12,
  Guid = 15,
  Numeric = 16
};

struct JetColumn {
  std::string name;
  JetType type = JetType::Text;
  int size = 0;          // characters of a Text, bytes of a Binary
  bool counter = false;  // a Long that numbers the rows
  bool fixed = false;    // a Text filled up with blanks to its size
  int precision = 18;    // of a Numeric
  int scale = 4;
};

struct JetIndex {
  std::string name;
  std::vector<std::string> columns;
  bool unique = false;
  bool primary = false;
};

/// Bytes as they are to be in the file: also for a Text or Memo whose encoding is broken.
struct JetBytes {
  std::string content;
};

/// Where a Memo or Ole value lies: as a program would choose by its length, within the row, on a page that it
/// shares with others, or on pages of its own.
enum class JetPlace : std::uint8_t { ByLength, InRow, SharedPage, Pages };

/// A Memo with its place.
struct JetMemo {
  std::string text;
  JetPlace place = JetPlace::ByLength;
};

/// Null; a Boolean; a whole number (Byte, Short, Long; Money in ten-thousandths; Numeric without its point);
/// a Single, Double or Date's serial number; a text in UTF-8; a memo; bytes.
using JetCell = std::variant<std::monostate, bool, std::int64_t, double, std::string, JetMemo, JetBytes>;

/// What became of a row since it was added. A moved row has grown: its place holds a pointer to a later page.
enum class JetRowState : std::uint8_t { Stored, Deleted, Moved };

struct JetOptions {
  std::string charset = "GBK";  // into which the texts of Jet 3 are converted
  int codePage = 936;           // which the header tells, whether it is true or not
  std::uint32_t key = 0;        // pages are encoded by it unless it is 0
  std::string password{};       // written down in the header; hides nothing
};

namespace jet {
class File;
class TableWriter;
}  // namespace jet

/// A table of a file that is being written. Several may be filled at once.
class JetTable {
 public:
  explicit JetTable(std::unique_ptr<jet::TableWriter> writer);
  JetTable(JetTable&&) noexcept;
  ~JetTable();

  /// Adds a row, one cell for each column; cells are missing at the end in a row that is older than the last
  /// columns. std::invalid_argument when a cell does not fit its column or the row no page.
  void add(const std::vector<JetCell>& cells, JetRowState state = JetRowState::Stored);
  /// The last number that the counter gave; without it the greatest one that was added.
  void setLastCounter(std::int32_t number);

 private:
  friend class JetFileWriter;
  std::unique_ptr<jet::TableWriter> writer_;
};

/// Writes a Jet file from nothing, page after page, so that large ones cost no memory. Texts, tables and the
/// catalogue stand as the engine's own programs leave them; the pages of indexes are there, but empty.
class JetFileWriter {
 public:
  /// Replaces the file. std::runtime_error when it cannot be written.
  JetFileWriter(const std::filesystem::path& path, JetVersion version, JetOptions options = {});
  JetFileWriter(const JetFileWriter&) = delete;
  JetFileWriter& operator=(const JetFileWriter&) = delete;
  ~JetFileWriter();

  /// Begins a table; the reference holds until `close`.
  JetTable& table(std::string_view name, std::vector<JetColumn> columns, std::vector<JetIndex> indexes = {});
  /// An entry of the catalogue for a table that lies in another file.
  void link(std::string_view name, std::string_view otherFile, std::string_view otherTable);
  /// An entry of the catalogue for a stored query.
  void query(std::string_view name);
  /// Writes what is outstanding. Without it the file is no Jet file.
  void close();

 private:
  std::unique_ptr<jet::File> file_;
  std::vector<std::unique_ptr<JetTable>> tables_;
};

}  // namespace zelkor::test

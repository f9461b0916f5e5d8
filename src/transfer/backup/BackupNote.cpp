#include "transfer/backup/BackupNote.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>

#include "base/Text.h"
#include "transfer/backup/Checksum.h"

namespace zelkor {
namespace {

constexpr std::string_view kHead =
    "[zelkor-backup]\n"
    "; 固定资产账套的备份，由 zelkorctl backup 建立，用 zelkorctl restore "
    "恢复。恢复之前逐项核对，请勿修改。\n";
constexpr std::string_view kDataSection = "[ZkData.Mdb]";
constexpr std::string_view kSystemSection = "[ZkSystem.Mdb]";
constexpr std::string_view kEnd = "[end]\nsha256=";

using Pairs = std::vector<std::pair<std::string, std::string>>;

/// A value is one line.
std::string lineOf(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return text;
}

void add(std::string& text, std::string_view key, const std::string& value) {
  text.append(key).append("=").append(lineOf(value)).append("\n");
}

std::string sectionOf(std::string_view title, const BackedUpFile& file) {
  std::string text(title);
  text += '\n';
  add(text, "bytes", std::to_string(file.bytes));
  add(text, "sha256", file.checksum);
  add(text, "rows", std::to_string(rowsOf(file)));
  for (const auto& [table, rows] : file.rows) add(text, table, std::to_string(rows));
  return text;
}

template <typename Number>
Number numberOf(const std::string& text) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::map<std::string, Pairs> sectionsOf(std::string_view text) {
  std::map<std::string, Pairs> sections;
  std::string section;
  for (const std::string& line : Split(text, '\n')) {
    const std::size_t equals = line.find('=');
    if (line.starts_with('[')) {
      section = line;
    } else if (!line.starts_with(';') && equals != std::string::npos) {
      sections[section].emplace_back(line.substr(0, equals), line.substr(equals + 1));
    }
  }
  return sections;
}

BackedUpFile fileOf(const Pairs& pairs) {
  BackedUpFile file;
  for (const auto& [key, value] : pairs) {
    if (key == "bytes") {
      file.bytes = numberOf<std::uint64_t>(value);
    } else if (key == "sha256") {
      file.checksum = value;
    } else if (key != "rows") {
      file.rows.emplace_back(key, numberOf<std::int64_t>(value));
    }
  }
  return file;
}

/// The text before its checksum, where that is right.
std::optional<std::string_view> checkedPart(std::string_view text) {
  const std::size_t end = text.rfind(kEnd);
  if (!text.starts_with(kHead) || end == std::string_view::npos) return std::nullopt;
  const std::string_view part = text.substr(0, end);
  if (text.substr(end + kEnd.size()) != checksumOf(part) + '\n') return std::nullopt;
  return part;
}

struct TextField {
  std::string_view key;
  std::string BackupNote::*field;
};
constexpr std::array kTexts = {
    TextField{"account", &BackupNote::account}, TextField{"name", &BackupNote::name},
    TextField{"unit", &BackupNote::unit},       TextField{"month", &BackupNote::month},
    TextField{"label", &BackupNote::label},     TextField{"program", &BackupNote::program},
    TextField{"machine", &BackupNote::machine}, TextField{"source", &BackupNote::source},
    TextField{"value", &BackupNote::value},     TextField{"accumulated", &BackupNote::accumulated}};

void take(BackupNote& note, const std::string& key, const std::string& value) {
  if (key == "time") note.time = parseDate(value).value_or(DateTime{});
  if (key == "revision") note.revision = numberOf<int>(value);
  if (key == "cards") note.cards = numberOf<std::int64_t>(value);
  for (const TextField& text : kTexts)
    if (text.key == key) note.*text.field = value;
}

}  // namespace

std::int64_t rowsOf(const BackedUpFile& file) {
  std::int64_t rows = 0;
  for (const auto& [table, count] : file.rows) rows += count;
  return rows;
}

std::string textOf(const BackupNote& note) {
  std::string text(kHead);
  add(text, "time", note.time.toIso());
  add(text, "revision", std::to_string(note.revision));
  add(text, "cards", std::to_string(note.cards));
  for (const TextField& field : kTexts) add(text, field.key, note.*field.field);
  text += sectionOf(kDataSection, note.data) + sectionOf(kSystemSection, note.system);
  const std::string checksum = checksumOf(text);
  return text.append(kEnd).append(checksum).append("\n");
}

std::optional<BackupNote> backupNoteOf(std::string_view text) {
  const auto part = checkedPart(text);
  if (!part) return std::nullopt;
  auto sections = sectionsOf(*part);
  BackupNote note;
  for (const auto& [key, value] : sections["[zelkor-backup]"]) take(note, key, value);
  note.data = fileOf(sections[std::string(kDataSection)]);
  note.system = fileOf(sections[std::string(kSystemSection)]);
  return note;
}

}  // namespace zelkor

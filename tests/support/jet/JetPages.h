#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/jet/JetFormat.h"

namespace zelkor::test::jet {

/// RC4, by which the header is masked and pages are encoded; the same call decodes.
std::string encoded(std::string_view plain, std::uint32_t key);

/// The pages of a file; each is written once, in any order.
class PageFile {
 public:
  PageFile(const std::filesystem::path& path, const Format& format, std::uint32_t key);

  const Format& format() const { return format_; }
  std::uint32_t allocate() { return pages_++; }
  std::uint32_t pages() const { return pages_; }
  /// Fills the page up with zeros, encodes all but the first one and writes it.
  void write(std::uint32_t number, std::string page);
  void close();

 private:
  std::ofstream out_;
  const Format& format_;
  std::uint32_t key_;
  std::uint32_t pages_ = 0;
};

/// A page that holds rows from its end to its front: of a table, of long values, of usage maps.
class RowPage {
 public:
  static constexpr std::uint32_t kLongValues = 0x4C41564C;  // "LVAL", where others name their table
  static constexpr std::uint16_t deleted = 0x8000;
  static constexpr std::uint16_t pointer = 0x4000;

  RowPage(PageFile& file, std::uint32_t owner);

  std::uint32_t number() const { return number_; }
  bool fits(std::size_t size) const;
  /// Gives the row's number on the page. The row must fit.
  std::size_t add(std::string_view row, std::uint16_t flags = 0);
  void write(PageFile& file) const;

 private:
  std::size_t free() const;

  const Format& format_;
  std::uint32_t number_;
  std::uint32_t owner_;
  std::vector<std::uint16_t> offsets_;
  std::string content_;
  std::size_t start_;
};

/// The pages of rows that one owner fills one after the other.
class RowPages {
 public:
  RowPages(PageFile& file, std::uint32_t owner) : file_(file), owner_(owner) {}

  /// Adds a row where there is room and gives the pointer to it.
  std::uint32_t add(std::string_view row, std::uint16_t flags = 0);
  /// Adds a row to a page of its own.
  std::uint32_t addAlone(std::string_view row);
  void finish();
  const std::vector<std::uint32_t>& numbers() const { return numbers_; }

 private:
  RowPage& open();

  PageFile& file_;
  std::uint32_t owner_;
  std::optional<RowPage> page_;
  std::vector<std::uint32_t> numbers_;
};

/// Keeps which pages belong to whom.
class UsageMaps {
 public:
  explicit UsageMaps(PageFile& file) : file_(file), rows_(file, 0) {}

  /// Stores a map of these pages, in ascending order, and gives the pointer to it.
  std::uint32_t store(const std::vector<std::uint32_t>& pages);
  void finish() { rows_.finish(); }
  /// The map of the whole file's free pages, those after its end among them, for page 1.
  std::string freePages();

 private:
  std::string within(const std::vector<std::uint32_t>& pages) const;
  std::string byReference(const std::vector<std::uint32_t>& pages, bool inverted);
  std::size_t pagesWithin() const { return (file_.format().mapSize - 5) * 8; }

  PageFile& file_;
  RowPages rows_;
};

}  // namespace zelkor::test::jet

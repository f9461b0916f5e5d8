#include "support/jet/JetPages.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace zelkor::test::jet {

std::string encoded(std::string_view plain, std::uint32_t key) {
  std::array<std::uint8_t, 256> state{};
  std::iota(state.begin(), state.end(), std::uint8_t{0});
  std::uint8_t mixed = 0;
  for (std::size_t i = 0; i < state.size(); ++i) {
    mixed = static_cast<std::uint8_t>(mixed + state[i] + (key >> (8 * (i % 4))));
    std::swap(state[i], state[mixed]);
  }
  std::string result(plain);
  std::uint8_t at = 0;
  mixed = 0;
  for (char& byte : result) {
    ++at;
    mixed = static_cast<std::uint8_t>(mixed + state[at]);
    std::swap(state[at], state[mixed]);
    byte = static_cast<char>(byte ^ state[static_cast<std::uint8_t>(state[at] + state[mixed])]);
  }
  return result;
}

PageFile::PageFile(const std::filesystem::path& path, const Format& format, std::uint32_t key)
    : out_(path, std::ios::binary | std::ios::trunc), format_(format), key_(key) {
  if (!out_) throw std::runtime_error("cannot write " + path.string());
}

void PageFile::write(std::uint32_t number, std::string page) {
  page.resize(format_.pageSize);
  if (key_ != 0 && number != 0) page = encoded(page, key_ ^ number);
  out_.seekp(static_cast<std::streamoff>(number) * static_cast<std::streamoff>(format_.pageSize));
  out_.write(page.data(), static_cast<std::streamsize>(page.size()));
}

void PageFile::close() {
  out_.close();
  if (!out_) throw std::runtime_error("cannot write the Jet file");
}

RowPage::RowPage(PageFile& file, std::uint32_t owner)
    : format_(file.format()),
      number_(file.allocate()),
      owner_(owner),
      content_(file.format().pageSize, '\0'),
      start_(file.format().pageSize) {}

std::size_t RowPage::free() const {
  return start_ - (format_.rowCountPlace + 2 + 2 * offsets_.size());
}

bool RowPage::fits(std::size_t size) const {
  return offsets_.size() < 255 && size + 2 <= free();
}

std::size_t RowPage::add(std::string_view row, std::uint16_t flags) {
  start_ -= row.size();
  content_.replace(start_, row.size(), row);
  offsets_.push_back(static_cast<std::uint16_t>(start_ | flags));
  return offsets_.size() - 1;
}

void RowPage::write(PageFile& file) const {
  std::string page = content_;
  putAt(page, 0, 0x0101, 2);
  putAt(page, 2, free(), 2);
  putAt(page, 4, owner_, 4);
  putAt(page, format_.rowCountPlace, offsets_.size(), 2);
  for (std::size_t i = 0; i < offsets_.size(); ++i)
    putAt(page, format_.rowCountPlace + 2 + 2 * i, offsets_[i], 2);
  file.write(number_, std::move(page));
}

RowPage& RowPages::open() {
  finish();
  page_.emplace(file_, owner_);
  numbers_.push_back(page_->number());
  return *page_;
}

std::uint32_t RowPages::add(std::string_view row, std::uint16_t flags) {
  if (!page_ || !page_->fits(row.size())) open();
  const std::size_t number = page_->add(row, flags);
  return rowPointer(page_->number(), number);
}

std::uint32_t RowPages::addAlone(std::string_view row) {
  RowPage page(file_, owner_);
  numbers_.push_back(page.number());
  page.add(row);
  page.write(file_);
  return rowPointer(page.number(), 0);
}

void RowPages::finish() {
  if (page_) page_->write(file_);
  page_.reset();
}

std::string UsageMaps::within(const std::vector<std::uint32_t>& pages) const {
  const std::uint32_t first = pages.empty() ? 0 : pages.front() & ~7U;
  std::string map(1, '\0');
  put(map, first, 4);
  map.resize(file_.format().mapSize);
  for (const std::uint32_t page : pages) {
    char& bits = map[5 + (page - first) / 8];
    bits = static_cast<char>(bits | 1 << (page - first) % 8);
  }
  return map;
}

std::string UsageMaps::byReference(const std::vector<std::uint32_t>& pages, bool inverted) {
  const std::size_t perPage = (file_.format().pageSize - 4) * 8;
  std::string map(1, '\1');
  for (auto next = pages.begin(); next != pages.end();) {
    const std::size_t index = *next / perPage;
    map.resize(1 + 4 * index);
    std::string bits(file_.format().pageSize, inverted ? '\xFF' : '\0');
    putAt(bits, 0, 0x0105, 4);
    for (; next != pages.end() && *next / perPage == index; ++next) {
      char& byte = bits[4 + *next % perPage / 8];
      byte = static_cast<char>(byte ^ 1 << *next % 8);
    }
    const std::uint32_t number = file_.allocate();
    file_.write(number, std::move(bits));
    put(map, number, 4);
  }
  map.resize(file_.format().mapSize);
  return map;
}

std::uint32_t UsageMaps::store(const std::vector<std::uint32_t>& pages) {
  const bool isShort = pages.empty() || pages.back() - (pages.front() & ~7U) < pagesWithin();
  return rows_.add(isShort ? within(pages) : byReference(pages, false));
}

std::string UsageMaps::freePages() {
  // The pages that the map itself takes are among those in use.
  const std::size_t perPage = (file_.format().pageSize - 4) * 8;
  std::size_t used = file_.pages();
  const bool isShort = used <= pagesWithin();
  if (!isShort) used += used / perPage + 1;
  std::vector<std::uint32_t> pages(used);
  std::iota(pages.begin(), pages.end(), 0U);
  if (!isShort) return byReference(pages, true);
  std::string map = within(pages);
  for (std::size_t i = 5; i < map.size(); ++i) map[i] = static_cast<char>(~map[i]);
  return map;
}

}  // namespace zelkor::test::jet

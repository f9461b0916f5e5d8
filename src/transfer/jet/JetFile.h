#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "transfer/jet/JetLayout.h"
#include "transfer/jet/JetPage.h"

namespace zelkor::jet {

/// A Jet file that is open for reading. libmdb opens it, decodes its header, reads its pages and walks the
/// maps of pages. It trusts its files, so that every place which the file names is checked before libmdb is
/// led there.
class JetFile {
 public:
  /// Errors: 3024 not there, 3051 not readable, 3343 not Jet, of another version, encoded or cut off.
  explicit JetFile(const std::filesystem::path& path);
  JetFile(const JetFile&) = delete;
  JetFile& operator=(const JetFile&) = delete;
  ~JetFile();

  const Layout& layout() const { return layout_; }
  /// The code page that the header gives, which need not be that of the texts.
  int codePage() const;

  /// Whether the file ends within a page; nothing that it mentions lies there.
  bool endsWithinPage() const { return size_ % layout_.pageSize != 0; }
  /// Whether so many bytes can lie in the file.
  bool holds(std::size_t bytes) const { return bytes <= size_; }
  /// Error 3343 when the file has no such page, as for all that follows.
  void read(PageNumber number, Page& page);
  /// The pages that a map names, in ascending order.
  std::vector<PageNumber> markedPages(RowPointer map);
  /// Sees that the pages of a map lie in the file whose rows nobody reads by it. There need be no such map:
  /// Jet points to some before it makes them.
  void checkMap(RowPointer map);

  /// Raises error 3343 with what is wrong with the file.
  [[noreturn]] void damaged(const std::string& what) const;
  /// Error 3343 when somebody has written the file since it was opened.
  void requireUnchanged() const;

 private:
  struct Library;

  std::optional<std::string> mapAt(RowPointer map);
  std::string requiredMap(RowPointer map);
  std::vector<PageNumber> pagesOf(std::string map);
  void checkMapPages(const std::string& map);
  void checkComplete();

  std::filesystem::path path_;
  std::uintmax_t size_;
  std::filesystem::file_time_type written_;
  Layout layout_;
  PageNumber pages_ = 0;
  std::unique_ptr<Library> library_;
};

}  // namespace zelkor::jet

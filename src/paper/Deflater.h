#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zelkor {

/// Compresses contents, one after the other.
class Deflater {
 public:
  enum class Form : std::uint8_t {
    Bare,    // as in a zip archive
    Wrapped  // with a header and a checksum, as in a PDF document
  };
  using Take = std::function<void(std::string_view packed)>;

  explicit Deflater(Form form);
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;
  ~Deflater();

  /// Begins another content.
  void begin();
  /// Hands over what comes out, in pieces; all of it with the content's end.
  void run(std::string_view content, bool end, const Take& take);
  /// A whole content at once.
  std::string packed(std::string_view content);

 private:
  struct Stream;
  std::unique_ptr<Stream> stream_;
};

}  // namespace zelkor

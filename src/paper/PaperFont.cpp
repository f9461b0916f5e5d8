#include "paper/PaperFont.h"

#include <fontconfig/fontconfig.h>
#include <hb-subset.h>
#include <hb.h>

#include <type_traits>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

template <auto destroy>
struct Destroyer {
  template <typename Thing>
  void operator()(Thing* thing) const {
    destroy(thing);
  }
};
template <typename Thing, auto destroy>
using Owned = std::unique_ptr<Thing, Destroyer<destroy>>;

using Pattern = Owned<FcPattern, FcPatternDestroy>;
using Blob = Owned<hb_blob_t, hb_blob_destroy>;
using FontFace = Owned<hb_face_t, hb_face_destroy>;
using Font = Owned<hb_font_t, hb_font_destroy>;
using SubsetInput = Owned<hb_subset_input_t, hb_subset_input_destroy>;

[[noreturn]] void missing(const std::string& what) {
  throw RuntimeError(ErrorNumber::DeviceIo, what);
}

struct FontPlace {
  std::string file;
  int index = 0;
};

const FcChar8* text(const char* characters) {
  return reinterpret_cast<const FcChar8*>(characters);
}

/// What is found for the name may be another font.
FontPlace findFont(Face face) {
  const Pattern wanted(FcPatternCreate());
  FcPatternAddString(wanted.get(), FC_FAMILY, text(kPaperFont));
  FcPatternAddInteger(wanted.get(), FC_WEIGHT, face == Face::Bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddBool(wanted.get(), FC_VARIABLE, FcFalse);
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
  FcChar8* family = nullptr;
  FcChar8* file = nullptr;
  FontPlace place;
  for (int i = 0; found && FcPatternGetString(found.get(), FC_FAMILY, i, &family) == FcResultMatch; ++i) {
    if (FcStrCmpIgnoreCase(family, text(kPaperFont)) != 0) continue;
    if (FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) break;
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &place.index);
    place.file = reinterpret_cast<const char*>(file);
    return place;
  }
  missing(std::string("没有找到字体“") + kPaperFont + "”：请安装软件包 " + kPaperFontPackage);
}

}  // namespace

struct PaperFont::Handles {
  FontFace face;
  Font font;
  double unitsPerEm = 1;
};

PaperFont::PaperFont(Face face) : handles_(std::make_unique<Handles>()) {
  const FontPlace place = findFont(face);
  const Blob file(hb_blob_create_from_file(place.file.c_str()));
  handles_->face.reset(hb_face_create(file.get(), static_cast<unsigned>(place.index)));
  handles_->font.reset(hb_font_create(handles_->face.get()));
  handles_->unitsPerEm = hb_face_get_upem(handles_->face.get());
  if (hb_face_get_glyph_count(handles_->face.get()) == 0) missing("不能读字体文件“" + place.file + "”");
}

PaperFont::~PaperFont() = default;

std::uint32_t PaperFont::glyph(char32_t character) const {
  hb_codepoint_t found = 0;
  return hb_font_get_nominal_glyph(handles_->font.get(), character, &found) != 0 ? found : 0;
}

double PaperFont::advance(std::uint32_t glyph) const {
  return hb_font_get_glyph_h_advance(handles_->font.get(), glyph) / handles_->unitsPerEm;
}

double PaperFont::ascent() const {
  hb_font_extents_t extents{};
  hb_font_get_h_extents(handles_->font.get(), &extents);
  return extents.ascender / handles_->unitsPerEm;
}

double PaperFont::descent() const {
  hb_font_extents_t extents{};
  hb_font_get_h_extents(handles_->font.get(), &extents);
  return extents.descender / handles_->unitsPerEm;
}

std::string PaperFont::outlines(std::span<const std::uint32_t> glyphs) const {
  const SubsetInput input(hb_subset_input_create_or_fail());
  for (const std::uint32_t glyph : glyphs) hb_set_add(hb_subset_input_glyph_set(input.get()), glyph);
  hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
  const FontFace subset(hb_subset_or_fail(handles_->face.get(), input.get()));
  if (!subset) missing(std::string("字体“") + kPaperFont + "”不能嵌入");
  const Blob table(hb_face_reference_table(subset.get(), HB_TAG('C', 'F', 'F', ' ')));
  unsigned length = 0;
  const char* bytes = hb_blob_get_data(table.get(), &length);
  if (length == 0) missing(std::string("字体“") + kPaperFont + "”不是 CFF 字体，不能嵌入");
  return {bytes, length};
}

}  // namespace zelkor

#include "platform/cairo/SvgFonts.h"

#include <fontconfig/fontconfig.h>
#include <hb-subset.h>
#include <pango/pangofc-font.h>

#include <vector>

#include "platform/cairo/Shaping.h"
#include "platform/cairo/SvgText.h"

namespace vx::drawing {

namespace {

using TBlob = THandle<hb_blob_t, hb_blob_destroy>;
using THbFace = THandle<hb_face_t, hb_face_destroy>;
using TSubset = THandle<hb_subset_input_t, hb_subset_input_destroy>;

// The last name of a family is the one that tells narrow and light kinds apart.
std::string FamilyOf(FcPattern* Pattern) {
  FcChar8* family = nullptr;
  std::string result;
  for (int i = 0; FcPatternGetString(Pattern, FC_FAMILY, i, &family) == FcResultMatch; ++i) {
    result = reinterpret_cast<const char*>(family);
  }
  return result;
}

std::string FileOf(FcPattern* Pattern, int& Index) {
  FcChar8* file = nullptr;
  Index = 0;
  FcPatternGetInteger(Pattern, FC_INDEX, 0, &Index);
  return FcPatternGetString(Pattern, FC_FILE, 0, &file) == FcResultMatch ? reinterpret_cast<const char*>(file) : "";
}

// The font file with these letters alone; empty if that can't be done.
std::string CutDown(const std::string& File, int Index, const std::set<uint32_t>& Letters) {
  const TBlob blob(hb_blob_create_from_file(File.c_str()));
  const THbFace face(hb_face_create(blob.get(), static_cast<unsigned>(Index)));
  const TSubset input(hb_subset_input_create_or_fail());
  if (!input) return {};
  for (uint32_t letter : Letters) hb_set_add(hb_subset_input_unicode_set(input.get()), letter);
  const THbFace subset(hb_subset_or_fail(face.get(), input.get()));
  if (!subset) return {};
  const TBlob bytes(hb_face_reference_blob(subset.get()));
  unsigned length = 0;
  const char* data = hb_blob_get_data(bytes.get(), &length);
  return {data, length};
}

void AddLetters(std::set<uint32_t>& Letters, std::string_view Utf8) {
  for (const char* at = Utf8.data(); at < Utf8.data() + Utf8.size(); at = g_utf8_next_char(at)) {
    Letters.insert(g_utf8_get_char(at));
  }
}

}  // namespace

TSvgFonts::TUsed& TSvgFonts::Place(const std::string& File, int Index, const std::string& Family) {
  TUsed& used = FUsed[{File, Index}];
  if (used.Number == 0) {
    used.Number = static_cast<int>(FUsed.size());
    used.Family = Family;
  }
  return used;
}

std::string TSvgFonts::Use(TFace& Face, std::u16string_view Text) {
  std::string own, installed;
  const auto add = [&](FcPattern* pattern, std::string_view utf8) {
    int index = 0;
    const std::string file = FileOf(pattern, index);
    TUsed& used = Place(file, index, FamilyOf(pattern));
    AddLetters(used.Letters, utf8);
    const std::string name = "vx" + std::to_string(used.Number);
    if (own.find(name + ",") != own.npos) return;
    own += name + ",";
    installed += "'" + EscapedXml(used.Family) + "',";
  };
  if (Face.IsSimple(Text)) {
    add(Face.Pattern(), WithoutControls(Text).ToUtf8());
  } else {
    ForEachShapedLine(Face, Text, [&](PangoLayoutLine* line, int) {
      const char* utf8 = pango_layout_get_text(line->layout);
      for (const GSList* run = line->runs; run; run = run->next) {
        const PangoItem* item = static_cast<PangoLayoutRun*>(run->data)->item;
        FcPattern* pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(item->analysis.font));
        add(pattern, {utf8 + item->offset, static_cast<size_t>(item->length)});
      }
    });
  }
  return own + installed + "sans-serif";
}

std::string TSvgFonts::Rules() const {
  std::string result;
  for (const auto& [place, used] : FUsed) {
    const std::string bytes = CutDown(place.first, place.second, used.Letters);
    if (bytes.empty()) continue;
    result += "@font-face{font-family:vx" + std::to_string(used.Number) + ";src:url(data:font/ttf;base64," +
              Base64(bytes) + ")}\n";
  }
  return result;
}

}  // namespace vx::drawing

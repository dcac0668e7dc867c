// The face of the picture's texts: the one that the bundle brings, from a copy in the program.
// Which faces a system has for a general name nobody knows; a small one has none but a monospaced.
#include "host/plot/plotface.h"

#include <cairo-ft.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <new>

#include "host/plot/linux/plotfont.h"

namespace {

// The file has no bold letters: they are made of the others.
cairo_font_face_t* makeFace(bool bold) {
  static FT_Library library = nullptr;
  if (library == nullptr && FT_Init_FreeType(&library) != 0) throw std::bad_alloc();
  FT_Face face = nullptr;
  if (FT_New_Memory_Face(library, kPlotFont, static_cast<FT_Long>(kPlotFontSize), 0, &face) != 0)
    throw std::bad_alloc();
  cairo_font_face_t* made = cairo_ft_font_face_create_for_ft_face(face, 0);
  if (bold) cairo_ft_font_face_set_synthesize(made, CAIRO_FT_SYNTHESIZE_BOLD);
  return made;
}

}  // namespace

// Made once and kept: Cairo goes on using a face after the last picture.
void selectPlotFace(cairo_t* context, bool bold) {
  static cairo_font_face_t* const kRegular = makeFace(false);
  static cairo_font_face_t* const kBold = makeFace(true);
  cairo_set_font_face(context, bold ? kBold : kRegular);
}

// A surface to draw a picture on.
#include "host/plot/plotcanvas.h"

#include <cstring>
#include <numbers>

#include "host/base/failure.h"
#include "host/base/writeall.h"
#include "host/plot/plotface.h"
#include "platform/validtext.h"

namespace {

constexpr double kDash[] = {5.0, 4.0};  // pixels on, off

// Cairo refuses everything after the first byte that is not UTF-8, and fonts have
// no control characters.
std::string drawable(const std::string& bytes) {
  std::string text = validText(bytes);
  for (char& byte : text) {
    if (static_cast<unsigned char>(byte) < ' ') byte = '?';
  }
  return text;
}

// Where the picture goes. The library's own status does not say why a write failed.
struct PictureSink {
  int descriptor;
  int error = 0;  // the system's
};

cairo_status_t writeBytes(void* closure, const unsigned char* bytes, unsigned int length) {
  auto& sink = *static_cast<PictureSink*>(closure);
  sink.error = writeAll(sink.descriptor, bytes, length);
  return sink.error == 0 ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

}  // namespace

PlotCanvas::PlotCanvas(int width, int height, const PlotColour& background)
    : surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      context(cairo_create(surface.get())) {
  use(background);
  cairo_paint(context.get());
}

void PlotCanvas::use(const PlotColour& colour) {
  cairo_set_source_rgba(context.get(), colour.red, colour.green, colour.blue, colour.alpha);
}

void PlotCanvas::fill(const PlotArea& area, const PlotColour& colour, double radius) {
  constexpr double kQuarter = std::numbers::pi / 2;
  cairo_t* cr = context.get();
  cairo_new_path(cr);
  cairo_arc(cr, area.right() - radius, area.top + radius, radius, -kQuarter, 0.0);
  cairo_arc(cr, area.right() - radius, area.bottom() - radius, radius, 0.0, kQuarter);
  cairo_arc(cr, area.left + radius, area.bottom() - radius, radius, kQuarter, 2 * kQuarter);
  cairo_arc(cr, area.left + radius, area.top + radius, radius, 2 * kQuarter, 3 * kQuarter);
  cairo_close_path(cr);
  use(colour);
  cairo_fill(cr);
}

void PlotCanvas::outline(const PlotArea& area, const PlotColour& colour) {
  cairo_rectangle(context.get(), area.left, area.top, area.width, area.height);
  stroke(colour, 1.0, false);
}

void PlotCanvas::stroke(const PlotColour& colour, double width, bool dashed) {
  use(colour);
  cairo_set_line_width(context.get(), width);
  cairo_set_line_join(context.get(), CAIRO_LINE_JOIN_ROUND);
  cairo_set_dash(context.get(), &kDash[0], dashed ? 2 : 0, 0.0);
  cairo_stroke(context.get());
}

void PlotCanvas::line(const PlotPoint& from, const PlotPoint& to, const PlotColour& colour,
                      double width, bool dashed) {
  cairo_move_to(context.get(), from.x, from.y);
  cairo_line_to(context.get(), to.x, to.y);
  stroke(colour, width, dashed);
}

void PlotCanvas::trace(const std::vector<PlotPoint>& points) {
  cairo_new_path(context.get());
  for (const PlotPoint& point : points) cairo_line_to(context.get(), point.x, point.y);
}

void PlotCanvas::curve(const std::vector<PlotPoint>& points, const PlotColour& colour,
                       double width) {
  if (points.empty()) return;
  trace(points);
  stroke(colour, width, false);
}

void PlotCanvas::under(const std::vector<PlotPoint>& points, double floor,
                       const PlotColour& colour) {
  if (points.empty()) return;
  trace(points);
  cairo_line_to(context.get(), points.back().x, floor);
  cairo_line_to(context.get(), points.front().x, floor);
  cairo_close_path(context.get());
  use(colour);
  cairo_fill(context.get());
}

void PlotCanvas::select(const PlotText& look) {
  selectPlotFace(context.get(), look.bold);
  cairo_set_font_size(context.get(), look.size);
}

double PlotCanvas::widthOf(const std::string& text, const PlotText& look) {
  select(look);
  cairo_text_extents_t extents;
  cairo_text_extents(context.get(), drawable(text).c_str(), &extents);
  return extents.x_advance;
}

std::string PlotCanvas::fitted(const std::string& text, const PlotText& look, double width) {
  if (widthOf(text, look) <= width) return text;
  std::string shorter = drawable(text);
  while (!shorter.empty()) {
    do {
      shorter.pop_back();
    } while (!shorter.empty() && continuesCharacter(shorter.back()));
    // The first byte of a character whose other bytes are gone goes as well.
    if (!shorter.empty() && static_cast<unsigned char>(shorter.back()) >= 0xC0) shorter.pop_back();
    if (widthOf(shorter + "\u2026", look) <= width) break;
  }
  return shorter + "\u2026";
}

void PlotCanvas::text(const std::string& text, const PlotPoint& at, const PlotText& look) {
  constexpr double kCapitalHeight = 0.72;  // of the size
  const double width = widthOf(text, look);
  cairo_t* cr = context.get();
  cairo_save(cr);
  cairo_translate(cr, at.x, at.y);
  cairo_rotate(cr, look.angle);
  cairo_move_to(cr, -width * look.anchorX, kCapitalHeight * look.size * look.anchorY);
  use(look.colour);
  cairo_show_text(cr, drawable(text).c_str());
  cairo_restore(cr);
  cairo_new_path(cr);
}

void PlotCanvas::image(const PlotArea& area, const std::vector<std::uint32_t>& pixels, int columns,
                       int rows) {
  const int stride = columns * 4;  // bytes; 32-bit rows need no padding
  std::vector<std::uint32_t> copy = pixels;
  const std::unique_ptr<cairo_surface_t, Destroy> source(cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(copy.data()), CAIRO_FORMAT_ARGB32, columns, rows, stride));
  cairo_t* cr = context.get();
  cairo_save(cr);
  cairo_translate(cr, area.left, area.top);
  cairo_scale(cr, area.width / columns, area.height / rows);
  cairo_set_source_surface(cr, source.get(), 0, 0);
  cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_GOOD);
  cairo_paint(cr);
  cairo_restore(cr);
  use({0, 0, 0});  // lets go of the source
}

void PlotCanvas::writePng(int descriptor, const std::filesystem::path& file) const {
  PictureSink sink{descriptor};
  const auto status = cairo_status(context.get()) != CAIRO_STATUS_SUCCESS
                          ? cairo_status(context.get())
                          : cairo_surface_write_to_png_stream(surface.get(), writeBytes, &sink);
  if (status == CAIRO_STATUS_SUCCESS) return;
  const char* reason = sink.error != 0 ? std::strerror(sink.error) : cairo_status_to_string(status);
  throw cannotWrite(file, reason);
}

PlotCanvas::Clip::Clip(PlotCanvas& canvas, const PlotArea& area) : context(canvas.context.get()) {
  cairo_save(context);
  cairo_rectangle(context, area.left, area.top, area.width, area.height);
  cairo_clip(context);
}

PlotCanvas::Clip::~Clip() {
  cairo_restore(context);
}

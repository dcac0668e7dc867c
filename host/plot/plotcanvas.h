// A surface to draw a picture on, with the few things that the picture needs.
#pragma once

#include <cairo.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

struct PlotColour {
  double red, green, blue;
  double alpha = 1.0;
  PlotColour faded(double by) const { return {red, green, blue, alpha * by}; }
};

struct PlotPoint {
  double x, y;  // pixels, from the upper left
};

struct PlotArea {
  double left, top, width, height;
  double right() const { return left + width; }
  double bottom() const { return top + height; }
  double centreX() const { return left + width / 2; }
  double centreY() const { return top + height / 2; }
};

struct PlotText {
  double size;  // pixels
  PlotColour colour;
  double anchorX = 0.0;  // 0: the point is the text's left end, 1: the right end
  // 0: the point is on the base line, 0.5: in the middle of the capitals' height
  double anchorY = 0.0;
  bool bold = false;
  double angle = 0.0;  // radians, clockwise around the point
};

// One thread. Drawing errors do not show before writePng.
class PlotCanvas {
 public:
  PlotCanvas(int width, int height, const PlotColour& background);

  void fill(const PlotArea& area, const PlotColour& colour, double cornerRadius = 0.0);
  void outline(const PlotArea& area, const PlotColour& colour);
  void line(const PlotPoint& from, const PlotPoint& to, const PlotColour& colour,
            double width = 1.0, bool dashed = false);
  void curve(const std::vector<PlotPoint>& points, const PlotColour& colour, double width);
  // The area between the curve and the horizontal line at `floor`.
  void under(const std::vector<PlotPoint>& points, double floor, const PlotColour& colour);
  // text: any bytes; what is not UTF-8 is repaired as in the effect's window, control characters
  // show as question marks.
  void text(const std::string& text, const PlotPoint& at, const PlotText& look);
  double widthOf(const std::string& text, const PlotText& look);
  // The text as it is, or shortened with an ellipsis so that it fits.
  std::string fitted(const std::string& text, const PlotText& look, double width);
  // pixels: columns x rows, premultiplied ARGB; scaled into the area.
  void image(const PlotArea& area, const std::vector<std::uint32_t>& pixels, int columns, int rows);

  class Clip;  // limits drawing to an area while it lives

  // file: its name, for messages. Throws Failure.
  void writePng(int descriptor, const std::filesystem::path& file) const;

 private:
  void select(const PlotText& look);
  void trace(const std::vector<PlotPoint>& points);
  void stroke(const PlotColour& colour, double width, bool dashed);
  void use(const PlotColour& colour);

  struct Destroy {
    void operator()(cairo_surface_t* done) const { cairo_surface_destroy(done); }
    void operator()(cairo_t* done) const { cairo_destroy(done); }
  };
  std::unique_ptr<cairo_surface_t, Destroy> surface;
  std::unique_ptr<cairo_t, Destroy> context;
};

class PlotCanvas::Clip {
 public:
  Clip(PlotCanvas& canvas, const PlotArea& area);
  ~Clip();
  Clip(const Clip&) = delete;
  Clip& operator=(const Clip&) = delete;

 private:
  cairo_t* context;
};

// Compares pictures, and keeps them in PNG files.
#include "picture.h"

#include <cairo/cairo.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

std::ostream& operator<<(std::ostream& out, const Area& area) {
  return out << '(' << area.left << ", " << area.top << ")-(" << area.right << ", " << area.bottom
             << ')';
}

std::ostream& operator<<(std::ostream& out, const Picture& picture) {
  return out << "a picture of " << picture.width << " x " << picture.height << " pixels";
}

int channelDifference(std::uint32_t one, std::uint32_t other) {
  int largest = 0;
  for (const int shift : {0, 8, 16}) {
    const auto channel = [shift](std::uint32_t pixel) {
      return static_cast<int>(pixel >> shift & 0xFFU);
    };
    largest = std::max(largest, std::abs(channel(one) - channel(other)));
  }
  return largest;
}

Area differingArea(const Picture& one, const Picture& other) {
  Area area{one.width, one.height, 0, 0};
  for (int y = 0; y < one.height; ++y) {
    for (int x = 0; x < one.width; ++x) {
      if (one.at(x, y) == other.at(x, y)) continue;
      area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x + 1),
              std::max(area.bottom, y + 1)};
    }
  }
  return area.right == 0 ? Area{} : area;
}

double differingShare(const Picture& one, const Picture& other, const Area& area, int threshold) {
  int differing = 0;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      if (channelDifference(one.at(x, y), other.at(x, y)) > threshold) ++differing;
    }
  }
  const int pixels = (area.right - area.left) * (area.bottom - area.top);
  return pixels == 0 ? 0 : static_cast<double>(differing) / pixels;
}

Picture readPicture(const std::string& path) {
  Picture picture;
  cairo_surface_t* surface = cairo_image_surface_create_from_png(path.c_str());
  if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
    picture.width = cairo_image_surface_get_width(surface);
    picture.height = cairo_image_surface_get_height(surface);
    picture.pixels.resize(static_cast<std::size_t>(picture.width) *
                          static_cast<std::size_t>(picture.height));
    const auto rowBytes = static_cast<std::size_t>(picture.width) * 4;
    for (int y = 0; y < picture.height; ++y) {
      const unsigned char* row =
          cairo_image_surface_get_data(surface) +
          static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface);
      std::memcpy(&picture.pixels[static_cast<std::size_t>(y * picture.width)], row, rowBytes);
    }
    for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFFU;
  }
  cairo_surface_destroy(surface);
  return picture;
}

bool writePicture(const Picture& picture, const std::string& path) {
  std::vector<std::uint32_t> pixels = picture.pixels;
  cairo_surface_t* surface = cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_RGB24, picture.width,
      picture.height, cairo_format_stride_for_width(CAIRO_FORMAT_RGB24, picture.width));
  const cairo_status_t status = cairo_surface_write_to_png(surface, path.c_str());
  cairo_surface_destroy(surface);
  return status == CAIRO_STATUS_SUCCESS;
}

Picture differencePicture(const Picture& one, const Picture& other) {
  Picture shown = one;
  for (std::size_t i = 0; i < shown.pixels.size(); ++i) {
    const std::uint32_t grey = 0xC0U + (one.pixels[i] >> 8 & 0xFFU) / 4;
    shown.pixels[i] = one.pixels[i] == other.pixels[i] ? grey << 16 | grey << 8 | grey : 0xFF0000U;
  }
  return shown;
}

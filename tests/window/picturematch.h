// Tells whether two pictures of the window are the same to a person, whatever draws its
// letters and edges.
#pragma once

#include <ostream>
#include <vector>

#include "picture.h"

// Artwork is compared pixel by pixel, with some room for how edges are smoothed. Letters come from
// the machine's font rendering, which may move them by a pixel and smooth them differently: texts
// are compared through a slight blur, in the place where they fit best within a pixel to each side.
struct PictureMatch {
  double artwork = 0;  // share of the pixels outside the text areas that differ, 0..1
  double tile = 0;     // the same share in the square where it is largest
  double text = 0;     // difference as a share of the ink, of the text area where it is largest

  bool alike() const;
};

std::ostream& operator<<(std::ostream& out, const PictureMatch& match);

// texts: in the pictures' pixels; parts that lie outside are left out. Pictures of different size
// are not alike.
PictureMatch matchPictures(const Picture& one, const Picture& other,
                           const std::vector<Area>& texts);

// A list in a WAV: a kind of four letters, and then chunks of its own.
#pragma once

#include <string>
#include <vector>

// Its chunks, with the kind in front: "INFOISFT".
std::vector<std::string> namesInList(const std::string& list);
// Makes its bytes a multiple of four by zeros at the end of its last chunk, a text. Readers take
// zeros behind it for another one. Returns false where it is not made of whole chunks.
bool evenOutList(std::string& list);

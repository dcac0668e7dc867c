// What the outputs of several inputs are called, so that none gets another's name.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/convert/inputsearch.h"

struct OutputNaming {
  std::string suffix;               // before the extension
  std::optional<std::string> type;  // extension of all; none: what the input has
};

// By input, below the folder for outputs: the input's own name. Without a type, what is lossy or of
// a type that is not written becomes .wav, so that nothing is encoded once more. Where two would be
// equal, files from different folders get as many of their folders' names as tell those apart, and
// of files in one folder those whose type changes keep their old extension too ("a.mp3.wav"). A
// name does not depend on the order. Equal are then only those of one input that is named twice.
std::vector<std::filesystem::path> outputNames(const std::vector<FoundInput>& inputs,
                                               const OutputNaming& naming);

// The pictures of such outputs: .png in place of the extension, or after it where two would
// be equal.
std::vector<std::filesystem::path> pictureNames(const std::vector<std::filesystem::path>& outputs);

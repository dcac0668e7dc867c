// An editor for tests: it writes down what the effect tells it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "editor/window/adeditor.h"

// The effect owns it once it is installed with setEditor.
class RecordingEditor : public ADEditor {
 public:
  using ADEditor::ADEditor;

  void setParameter(VstInt32 index, float value) override { parameters.emplace_back(index, value); }
  void nameChangedExternal(const char* name) override { names.emplace_back(name); }
  void loadDefaults() override { ++defaultsLoaded; }

  std::vector<std::pair<VstInt32, float>> parameters;
  std::vector<std::string> names;
  int defaultsLoaded = 0;
};

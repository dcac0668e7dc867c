// A preset menu in a frame, and what its list shows.
#pragma once

#include <string>

#include "controltest.h"
#include "editor/controls/cpresetmenu.h"
#include "editor/controls/linux/presetpopuplayout.h"
#include "vstgui.h"

namespace controltest {

class PresetList : public ControlTest {
 protected:
  PresetList() {
    const std::int32_t style = VSTGUI::COptionMenu::kPopupStyle | VSTGUI::COptionMenu::kCheckStyle |
                               VSTGUI::COptionMenu::kNoTextStyle |
                               VSTGUI::COptionMenu::kNoDrawStyle;
    menu =
        add(new CPresetMenu(CRect(207, 221, 217, 235), &listener, 1012, nullptr, nullptr, style));
    menu->setNbItemsPerColumn(16);
    for (int i = 0; i < 32; ++i) menu->addEntry(("Preset " + std::to_string(i)).c_str());
    menu->setValue(5);
  }

  bool isOpen() const { return menu->isOpen(); }
  CPoint onEntry(int index) const { return layout.entry(index).getCenter(); }

  // Entries whose ground differs from the list's: highlighted ones.
  std::vector<int> highlighted() {
    const Picture picture(frame, frame->getViewSize());
    std::vector<int> found;
    for (int i = 0; i < 32; ++i) {
      const CRect entry = layout.entry(i);
      if (!(picture.at(entry.right - 2, entry.top + 1) == kGround)) found.push_back(i);
    }
    return found;
  }

  void expectNoChange() {
    EXPECT_TRUE(listener.values.empty());
    EXPECT_EQ(menu->getCurrentIndex(true), 5);
    EXPECT_EQ(menu->getValue(), 5.0F);
    EXPECT_LT(menu->getLastResult(), 0);
  }

  const CColor kGround{189, 207, 218};
  const CPoint onMenu{212, 228}, outside{150, 3};
  const PresetPopupLayout layout{CRect(0, 0, 302, 251), 32, 16};
  CPresetMenu* menu;
};

}  // namespace controltest

// The list of presets as the system's own menu, which runs until something is chosen.
#include "editor/controls/presetpopup.h"

#include "editor/controls/cpresetmenu.h"
#include "vstgui.h"

void openPresetPopup(CPresetMenu* menu, const std::optional<VSTGUI::CPoint>& /*press*/) {
  menu->popup();
}

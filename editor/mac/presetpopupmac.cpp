// The list of presets as the system's own menu, which runs until something is chosen.
#include "editor/cpresetmenu.h"
#include "editor/presetpopup.h"

void openPresetPopup(CPresetMenu* menu, const std::optional<VSTGUI::CPoint>& /*press*/) {
  menu->popup();
}

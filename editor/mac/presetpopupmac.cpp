// The list of presets as the system's own menu.
#include "editor/cpresetmenu.h"
#include "editor/presetpopup.h"

void openPresetPopup(CPresetMenu* menu, const std::optional<VSTGUI::CPoint>& /*press*/) {
  menu->popup();
}
